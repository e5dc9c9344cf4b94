// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBus.h"

#include <memory>
#include <optional>

namespace tarnwick {

/// The session bus, for reading from other applications: connected when it is first needed, and again when it
/// went away. GUI thread only.
class SessionBus
{
public:
    /// Null when the bus cannot be reached by the deadline, or could not a moment ago.
    [[nodiscard]] SdBus* connection(Deadline deadline);
    /// The connection that stands now; null when there is none. Nothing is sent.
    [[nodiscard]] SdBus* standingConnection() const { return _bus && _bus->isOpen() ? _bus.get() : nullptr; }
    /// Tells the connection that stands from earlier ones, on which the same names may have meant others.
    [[nodiscard]] int number() const { return _number; }

    /// Its address; empty when there is none.
    [[nodiscard]] static QByteArray address();

private:
    std::unique_ptr<SdBus> _bus;
    std::optional<Deadline> _retry;
    int _number = 0;
};

} // namespace tarnwick
