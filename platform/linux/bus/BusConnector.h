// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/bus/Deadline.h"
#include "platform/linux/bus/SdBusMessage.h"

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

class SdBus;

/// A connection to one bus, made when it is first needed, and again when it went away. GUI thread only.
class BusConnector
{
public:
    /// `address` tells where the bus is, and nothing when that cannot be known by the deadline. `connected`
    /// hears of it at every new connection.
    explicit BusConnector(std::function<QByteArray(Deadline)> address,
                          std::function<void(const QByteArray&)> connected = {});
    ~BusConnector();

    /// Null when the bus cannot be reached by the deadline, or could not a moment ago.
    [[nodiscard]] SdBus* connection(Deadline deadline);
    /// The connection that stands now; null when there is none. Nothing is sent.
    [[nodiscard]] SdBus* standingConnection() const;
    /// Tells the connection that stands from earlier ones, on which the same names may have meant others.
    [[nodiscard]] int number() const { return _number; }
    /// Whether the object can be reached: it was seen on the connection that stands now.
    [[nodiscard]] bool stands(const BusReference& reference) const;

private:
    std::function<QByteArray(Deadline)> _address;
    std::function<void(const QByteArray&)> _connected;
    std::unique_ptr<SdBus> _bus;
    std::optional<Deadline> _retry; ///< while nothing is tried after a failure
    int _number = 0;
};

} // namespace tarnwick
