// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace tarnwick {

/// A shortcut as org.freedesktop.portal.GlobalShortcuts has it on the bus.
struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Before any of them is sent or read.
void registerPortalTypes();

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::PortalShortcut)
