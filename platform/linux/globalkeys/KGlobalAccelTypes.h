// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>

namespace tarnwick {

/// Keys pressed one after another, as org.kde.KGlobalAccel has them on the bus: four, of which those that are
/// not needed are 0.
struct KdeKeySequence
{
    QList<int> keys;

    /// One key with modifiers.
    [[nodiscard]] static KdeKeySequence of(int qtKey) { return {{qtKey, 0, 0, 0}}; }
};

/// How a shortcut that is asked for is compared with those that there are.
struct KdeMatch
{
    int type = 0; ///< 0: the same keys
};

/// One shortcut of somebody.
struct KdeShortcutInfo
{
    QString action, actionName;
    QString component, componentName;
    QString context, contextName;
    QList<int> keys, usualKeys;
};

QDBusArgument& operator<<(QDBusArgument& argument, const KdeKeySequence& sequence);
const QDBusArgument& operator>>(const QDBusArgument& argument, KdeKeySequence& sequence);
QDBusArgument& operator<<(QDBusArgument& argument, const KdeMatch& match);
const QDBusArgument& operator>>(const QDBusArgument& argument, KdeMatch& match);
QDBusArgument& operator<<(QDBusArgument& argument, const KdeShortcutInfo& info);
const QDBusArgument& operator>>(const QDBusArgument& argument, KdeShortcutInfo& info);

/// Before any of them is sent or read.
void registerKGlobalAccelTypes();

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::KdeKeySequence)
Q_DECLARE_METATYPE(tarnwick::KdeMatch)
Q_DECLARE_METATYPE(tarnwick::KdeShortcutInfo)
