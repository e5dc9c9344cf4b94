// SPDX-License-Identifier: MIT
#include "platform/linux/bus/SessionBus.h"

namespace tarnwick {

QByteArray SessionBus::address()
{
    QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address;
    const QByteArray directory = qgetenv("XDG_RUNTIME_DIR");
    return directory.isEmpty() ? QByteArray() : "unix:path=" + directory + "/bus";
}

} // namespace tarnwick
