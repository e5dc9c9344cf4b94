// SPDX-License-Identifier: MIT
#include "platform/linux/tray/LinuxTrayHost.h"

#include "platform/linux/tray/StatusNotifierItem.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

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
    connect(&_embeddingHost, &X11SelectionOwner::changed, this, &LinuxTrayHost::_decide);
    _askBus();
}

LinuxTrayHost::~LinuxTrayHost() = default;

void LinuxTrayHost::setBus(const QDBusConnection& bus)
{
    _bus = bus;
    _watchBus();
    _askBus();
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
    if (_embeddingHost.window() != XCB_WINDOW_NONE && (_kind == Kind::Embedding || !*_publishingHostThere))
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

} // namespace tarnwick

#include "moc_LinuxTrayHost.cpp"
