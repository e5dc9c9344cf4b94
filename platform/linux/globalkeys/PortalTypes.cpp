// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/PortalTypes.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>

namespace tarnwick {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

void registerPortalTypes()
{
    qRegisterMetaType<QDBusObjectPath>(); // a slot is found by the names of its types
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

} // namespace tarnwick
