// SPDX-License-Identifier: MIT
#include "platform/linux/tray/LinuxTrayHost.h"

#include "platform/linux/tray/StatusNotifierItem.h"
#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <xcb/xfixes.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int AskTimeout = 500; // milliseconds

const QString WatcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString WatcherPath = u"/StatusNotifierWatcher"_s;

} // namespace

LinuxTrayHost::LinuxTrayHost(const QDBusConnection& bus) : _bus(bus)
{
    _watchBus();
    _watchSelection();
    _askBus();
}

LinuxTrayHost::~LinuxTrayHost() = default;

void LinuxTrayHost::setBus(const QDBusConnection& bus)
{
    _bus = bus;
    _watchBus();
    _askBus();
}

bool LinuxTrayHost::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t" || _selectionEvent == 0)
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7F) != _selectionEvent)
        return false;
    const auto* change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t*>(event);
    if (change->selection == _selection)
        QMetaObject::invokeMethod(this, &LinuxTrayHost::_decide, Qt::QueuedConnection);
    return false;
}

std::unique_ptr<PublishedIcon> LinuxTrayHost::publish(QMenu& menu, const std::function<void()>& clicked)
{
    if (!_toolkitPublishes)
        _toolkitPublishes =
            _publishingHostThere.value_or(false) && QDBusConnection::sessionBus().isConnected();
    if (*_toolkitPublishes || _kind != Kind::Publishing)
        return nullptr;
    return std::make_unique<StatusNotifierItem>(_bus, menu, clicked);
}

void LinuxTrayHost::_askBus()
{
    if (!_bus.isConnected()) {
        _publishingHostThere = false;
        _decide();
        return;
    }
    auto question = QDBusMessage::createMethodCall(WatcherService, WatcherPath,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setAutoStartService(false);
    question.setArguments({WatcherService, u"IsStatusNotifierHostRegistered"_s});
    auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(question, AskTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        _publishingHostThere = reply.isValid() && reply.value().variant().toBool();
        _decide();
    });
}

void LinuxTrayHost::_decide()
{
    if (!_publishingHostThere)
        return;
    Kind found = Kind::None;
    if (_embeddingHostThere() && (_kind == Kind::Embedding || !*_publishingHostThere))
        found = Kind::Embedding;
    else if (*_publishingHostThere)
        found = Kind::Publishing;
    if (found == _kind)
        return;
    _kind = found;
    Q_EMIT changed();
}

void LinuxTrayHost::_watchBus()
{
    if (!_bus.isConnected())
        return;
    _watcher.setConnection(_bus);
    _watcher.addWatchedService(WatcherService);
    connect(&_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &LinuxTrayHost::_askBus,
            Qt::UniqueConnection);
    for (const auto& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        _bus.connect(WatcherService, WatcherPath, WatcherService, signal, this, SLOT(_askBus()));
}

void LinuxTrayHost::_watchSelection()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    _selection = x11.atom("_NET_SYSTEM_TRAY_S0");
    _selectionEvent = x11.watchSelectionOwner(_selection);
    if (_selectionEvent == 0)
        return;
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool LinuxTrayHost::_embeddingHostThere() const
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return false;
    const XcbOwned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        x11.get(), xcb_get_selection_owner(x11.get(), x11.atom("_NET_SYSTEM_TRAY_S0")), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace tarnwick

#include "moc_LinuxTrayHost.cpp"
