// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusMetaType>

namespace tarnwick {

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPicture& picture)
{
    argument.beginStructure();
    argument << picture.width << picture.height << picture.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPicture& picture)
{
    argument.beginStructure();
    argument >> picture.width >> picture.height >> picture.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.pictures << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.pictures >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PublishedEntry& entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedEntry& entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PublishedLayout& layout)
{
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const PublishedEntry& child : layout.children)
        argument << QDBusVariant(QVariant::fromValue(PublishedLayout{child.id, child.properties, {}}));
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedLayout& layout)
{
    layout.children.clear();
    argument.beginStructure();
    argument >> layout.id >> layout.properties;
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        const auto read = qdbus_cast<PublishedLayout>(child.variant().value<QDBusArgument>());
        layout.children.append({read.id, read.properties});
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PublishedEvent& event)
{
    argument.beginStructure();
    argument << event.id << event.what << event.data << event.time;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedEvent& event)
{
    argument.beginStructure();
    argument >> event.id >> event.what >> event.data >> event.time;
    argument.endStructure();
    return argument;
}

void registerStatusNotifierTypes()
{
    qDBusRegisterMetaType<StatusNotifierPicture>();
    qDBusRegisterMetaType<StatusNotifierPictures>();
    qDBusRegisterMetaType<StatusNotifierToolTip>();
    qDBusRegisterMetaType<PublishedEntry>();
    qDBusRegisterMetaType<PublishedEntries>();
    qDBusRegisterMetaType<PublishedLayout>();
    qDBusRegisterMetaType<PublishedEvent>();
    qDBusRegisterMetaType<PublishedEvents>();
}

} // namespace tarnwick
