// SPDX-License-Identifier: MIT
#include "platform/linux/bus/BusConnector.h"

#include "platform/linux/bus/SdBus.h"

#include <utility>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// After a failure to connect nothing is tried for this long.
constexpr auto Pause = 250ms;

} // namespace

BusConnector::BusConnector(std::function<QByteArray(Deadline)> address,
                           std::function<void(const QByteArray&)> connected)
    : _address(std::move(address)), _connected(std::move(connected))
{
}

BusConnector::~BusConnector() = default;

SdBus* BusConnector::standingConnection() const
{
    return _bus && _bus->isOpen() ? _bus.get() : nullptr;
}

SdBus* BusConnector::connection(Deadline deadline)
{
    if (SdBus* standing = standingConnection())
        return standing;
    if (_retry && !_retry->passed())
        return nullptr;
    const QByteArray address = _address(deadline);
    _bus = address.isEmpty() ? nullptr : SdBus::open(address, deadline);
    ++_number;
    _retry = _bus ? std::nullopt : std::optional(Deadline::in(Pause));
    if (_bus && _connected)
        _connected(address);
    return _bus.get();
}

bool BusConnector::stands(const BusReference& reference) const
{
    return reference && reference.connection == _number && standingConnection();
}

} // namespace tarnwick
