// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/KGlobalAccelTypes.h"

#include <QDBusMetaType>

namespace tarnwick {

QDBusArgument& operator<<(QDBusArgument& argument, const KdeKeySequence& sequence)
{
    argument.beginStructure();
    argument << sequence.keys;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, KdeKeySequence& sequence)
{
    argument.beginStructure();
    argument >> sequence.keys;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const KdeMatch& match)
{
    argument.beginStructure();
    argument << match.type;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, KdeMatch& match)
{
    argument.beginStructure();
    argument >> match.type;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const KdeShortcutInfo& info)
{
    argument.beginStructure();
    argument << info.action << info.actionName << info.component << info.componentName << info.context
             << info.contextName << info.keys << info.usualKeys;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, KdeShortcutInfo& info)
{
    argument.beginStructure();
    argument >> info.action >> info.actionName >> info.component >> info.componentName >> info.context >>
        info.contextName >> info.keys >> info.usualKeys;
    argument.endStructure();
    return argument;
}

void registerKGlobalAccelTypes()
{
    qDBusRegisterMetaType<QList<int>>();
    qDBusRegisterMetaType<KdeKeySequence>();
    qDBusRegisterMetaType<QList<KdeKeySequence>>();
    qDBusRegisterMetaType<KdeMatch>();
    qDBusRegisterMetaType<KdeShortcutInfo>();
    qDBusRegisterMetaType<QList<KdeShortcutInfo>>();
}

} // namespace tarnwick
