// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace tarnwick {

/// A picture of a status item: 32 bits a pixel in the order alpha, red, green, blue.
struct StatusNotifierPicture
{
    int width = 0;
    int height = 0;
    QByteArray pixels;
};
using StatusNotifierPictures = QList<StatusNotifierPicture>;

struct StatusNotifierToolTip
{
    QString iconName;
    StatusNotifierPictures pictures;
    QString title;
    QString text;
};

/// An entry of a menu on the bus, or the menu itself, with what is asked of it.
struct PublishedEntry
{
    int id = 0;
    QVariantMap properties;
};
using PublishedEntries = QList<PublishedEntry>;

struct PublishedLayout
{
    int id = 0;
    QVariantMap properties;
    QList<PublishedEntry> children;
};

struct PublishedEvent
{
    int id = 0;
    QString what;
    QDBusVariant data;
    uint time = 0;
};
using PublishedEvents = QList<PublishedEvent>;

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPicture& picture);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPicture& picture);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& argument, const PublishedEntry& entry);
const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedEntry& entry);
QDBusArgument& operator<<(QDBusArgument& argument, const PublishedLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedLayout& layout);
QDBusArgument& operator<<(QDBusArgument& argument, const PublishedEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& argument, PublishedEvent& event);

/// So that they can be sent. To be called before anything with them is registered on a bus.
void registerStatusNotifierTypes();

} // namespace tarnwick

Q_DECLARE_METATYPE(tarnwick::StatusNotifierPicture)
Q_DECLARE_METATYPE(tarnwick::StatusNotifierToolTip)
Q_DECLARE_METATYPE(tarnwick::PublishedEntry)
Q_DECLARE_METATYPE(tarnwick::PublishedLayout)
Q_DECLARE_METATYPE(tarnwick::PublishedEvent)
