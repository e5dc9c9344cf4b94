// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiApplications.h"

namespace tarnwick {

/// Whether other applications can be read, and the switch that makes them publish their menus. It stays on
/// at exit: others may rely on it.
class AtspiAccess
{
public:
    /// Both must outlive this.
    AtspiAccess(AtspiBus& bus, AtspiApplications& applications) : _bus(bus), _applications(applications) {}

    /// Whether the bus has an address, its registry answers, and applications publish their menus, or could
    /// be told to. That comes last: told before the bus is up, some would never come to it. Waits five
    /// seconds at most.
    [[nodiscard]] bool open();
    /// What open() found last.
    [[nodiscard]] bool granted();

private:
    [[nodiscard]] static bool _switchOn(Deadline deadline);

    AtspiBus& _bus;
    AtspiApplications& _applications;
    std::optional<bool> _granted;
};

} // namespace tarnwick
