// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString WatcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString WatcherPath = u"/StatusNotifierWatcher"_s;
const QString ItemPath = u"/StatusNotifierItem"_s;
const QString MenuPath = u"/MenuBar"_s;

constexpr std::array PictureSizes{16, 22, 24, 32, 48};

StatusNotifierPicture pictureOf(const QIcon& icon, int size)
{
    const QImage image = icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
    StatusNotifierPicture picture{image.width(), image.height(), {}};
    picture.pixels.reserve(image.sizeInBytes());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const quint32 pixel = qToBigEndian<quint32>(image.pixel(x, y));
            picture.pixels.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        }
    return picture;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const QDBusConnection& bus, QMenu& menu, std::function<void()> clicked)
    : _bus(bus), _watcher(WatcherService, bus, QDBusServiceWatcher::WatchForRegistration), _menu(menu),
      _clicked(std::move(clicked))
{
    registerStatusNotifierTypes();
    _bus.registerObject(MenuPath, &_menu, QDBusConnection::ExportAllContents);
    _bus.registerObject(ItemPath, this, QDBusConnection::ExportAllContents);
    connect(&_watcher, &QDBusServiceWatcher::serviceRegistered, this, &StatusNotifierItem::_tellWatcher);
    _tellWatcher();
}

void StatusNotifierItem::_tellWatcher()
{
    auto call = QDBusMessage::createMethodCall(WatcherService, WatcherPath, WatcherService,
                                               u"RegisterStatusNotifierItem"_s);
    call.setAutoStartService(false);
    call.setArguments({_bus.baseService()});
    _bus.send(call);
}

StatusNotifierItem::~StatusNotifierItem()
{
    _bus.unregisterObject(ItemPath);
    _bus.unregisterObject(MenuPath);
}

void StatusNotifierItem::setIcon(const QIcon& icon)
{
    _icon = icon;
    Q_EMIT NewIcon();
}

QString StatusNotifierItem::category()
{
    return u"ApplicationStatus"_s;
}

QString StatusNotifierItem::title()
{
    return QCoreApplication::applicationName();
}

QString StatusNotifierItem::status()
{
    return u"Active"_s;
}

StatusNotifierPictures StatusNotifierItem::iconPixmap() const
{
    StatusNotifierPictures pictures;
    for (const int size : PictureSizes)
        pictures.append(pictureOf(_icon, size));
    return pictures;
}

StatusNotifierToolTip StatusNotifierItem::toolTip()
{
    return {{}, {}, title(), {}};
}

QDBusObjectPath StatusNotifierItem::menu()
{
    return QDBusObjectPath(MenuPath);
}

void StatusNotifierItem::Activate(int /*x*/, int /*y*/)
{
    // The host waits for the answer.
    QMetaObject::invokeMethod(
        this, [clicked = _clicked] { clicked(); }, Qt::QueuedConnection);
}

void StatusNotifierItem::SecondaryActivate(int /*x*/, int /*y*/) {}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) {}

} // namespace tarnwick

#include "moc_StatusNotifierItem.cpp"
