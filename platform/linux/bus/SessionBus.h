// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusConnector.h"

namespace tarnwick {

/// The session bus, for reading from other applications. GUI thread only.
class SessionBus final : public BusConnector
{
public:
    SessionBus() : BusConnector([](Deadline) { return address(); }) {}

    /// Its address; empty when there is none.
    [[nodiscard]] static QByteArray address();
};

} // namespace tarnwick
