// SPDX-License-Identifier: MIT
#include "platform/linux/bus/SessionBus.h"

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// After a failure to connect nothing is tried for this long.
constexpr auto Pause = 250ms;

} // namespace

QByteArray SessionBus::address()
{
    QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
    return directory.isEmpty() ? QByteArray() : "unix:path=" + directory + "/bus";
}

SdBus* SessionBus::connection(Deadline deadline)
{
    if (SdBus* standing = standingConnection())
        return standing;
    if (_retry && !_retry->passed())
        return nullptr;
    const QByteArray where = address();
    _bus = where.isEmpty() ? nullptr : SdBus::open(where, deadline);
    ++_number;
    _retry = _bus ? std::nullopt : std::optional(Deadline::in(Pause));
    return _bus.get();
}

} // namespace tarnwick
