// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/ToolkitBridge.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int EmbedTimeout = 5000; // milliseconds; nobody waits for it

/// The toolkit's own name for its connection to the accessibility bus.
const QString ConnectionName = u"a11y"_s;

constexpr const char* KeeperClass = "DBusConnection";

const QString TreePath = u"/org/a11y/atspi/accessible"_s;
const QString CachePath = u"/org/a11y/atspi/cache"_s;
const QString KeysPath = u"/org/a11y/atspi/registry/deviceeventcontroller"_s;
const QString RegistryPath = u"/org/a11y/atspi/registry"_s;
const QString Registry = QString::fromLatin1(atspi::RegistryService);

} // namespace

ToolkitBridge::ToolkitBridge() : _connection(ConnectionName)
{
    _registry.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    connect(&_registry, &QDBusServiceWatcher::serviceRegistered, this, &ToolkitBridge::_embed);
    QCoreApplication::instance()->installEventFilter(this);
    QAccessible::installActivationObserver(this);
    // This question makes the toolkit ask the buses: the start need not wait for that.
    QMetaObject::invokeMethod(
        this, [this] { accessibilityActiveChanged(QAccessible::isActive()); }, Qt::QueuedConnection);
}

ToolkitBridge::~ToolkitBridge()
{
    QAccessible::removeActivationObserver(this);
}

void ToolkitBridge::accessibilityActiveChanged(bool active)
{
    if (active) // told before the toolkit publishes anything
        QMetaObject::invokeMethod(this, &ToolkitBridge::_takeUp, Qt::QueuedConnection);
}

bool ToolkitBridge::eventFilter(QObject* watched, QEvent* event)
{
    // The address of the bus comes to it as such an event; nothing else leads to it.
    if (event->type() == QEvent::MetaCall && watched->inherits(KeeperClass)) {
        _keeper = watched;
        QCoreApplication::instance()->removeEventFilter(this);
    }
    return false;
}

void ToolkitBridge::_takeUp()
{
    if (_tree)
        return;
    _connection = QDBusConnection(ConnectionName);
    _tree = qobject_cast<QDBusVirtualObject*>(_connection.objectRegisteredAt(TreePath));
    _cache = _connection.objectRegisteredAt(CachePath);
    _keys = _connection.objectRegisteredAt(KeysPath);
    if (_tree)
        _watch();
}

void ToolkitBridge::_lost()
{
    // Otherwise whoever asks for a connection of this name, the toolkit itself among them, gets the broken
    // one.
    QDBusConnection::disconnectFromBus(ConnectionName);
}

void ToolkitBridge::busAnswered(const QByteArray& address)
{
    QMetaObject::invokeMethod(
        this, [this, address = QString::fromLocal8Bit(address)] { _comeBack(address); },
        Qt::QueuedConnection);
}

void ToolkitBridge::_comeBack(const QString& address)
{
    if (!_tree || _connection.isConnected())
        return;
    _connection = QDBusConnection::connectToBus(address, ConnectionName);
    if (!_connection.isConnected())
        return;
    if (_keeper)
        QMetaObject::invokeMethod(_keeper, "connectA11yBus", Q_ARG(QString, address));
    _publish();
    // The registry may start because of this. It is watched only afterwards, so as not to be told twice.
    _embedThen([this] { _watch(); });
}

void ToolkitBridge::_publish()
{
    _connection.registerVirtualObject(TreePath, _tree, QDBusConnection::SubPath);
    if (_cache)
        _connection.registerObject(CachePath, _cache, QDBusConnection::ExportAdaptors);
    if (_keys)
        _connection.registerObject(KeysPath, _keys, QDBusConnection::ExportAdaptors);
    // Who listens to what: the toolkit asks when it hears of a change. These are slots of its own.
    _connection.connect(Registry, RegistryPath, Registry, u"EventListenerRegistered"_s, _tree,
                        SLOT(eventListenerRegistered(QString, QString)));
    _connection.connect(Registry, RegistryPath, Registry, u"EventListenerDeregistered"_s, _tree,
                        SLOT(eventListenerDeregistered(QString, QString)));
}

void ToolkitBridge::_embedThen(const std::function<void()>& answered)
{
    QDBusArgument application;
    application.beginStructure();
    application << _connection.baseService() << QDBusObjectPath(QString::fromLatin1(atspi::RootPath));
    application.endStructure();
    auto call = QDBusMessage::createMethodCall(Registry, QString::fromLatin1(atspi::RootPath),
                                               QString::fromLatin1(atspi::SocketInterface), u"Embed"_s);
    call.setArguments({QVariant::fromValue(application)});
    auto* answer = new QDBusPendingCallWatcher(_connection.asyncCall(call, EmbedTimeout), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [answer, answered] {
        answer->deleteLater();
        answered();
    });
}

void ToolkitBridge::_watch()
{
    _connection.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                        u"Disconnected"_s, this, SLOT(_lost()));
    _registry.setConnection(_connection);
    _registry.addWatchedService(Registry);
}

} // namespace tarnwick

#include "moc_ToolkitBridge.cpp"
