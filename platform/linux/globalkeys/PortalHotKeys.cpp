// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/PortalHotKeys.h"

#include "platform/linux/globalkeys/TriggerNotation.h"
#include "platform/linux/xdg/DesktopNames.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Service = u"org.freedesktop.portal.Desktop"_s;
const QString Path = u"/org/freedesktop/portal/desktop"_s;
const QString Shortcuts = u"org.freedesktop.portal.GlobalShortcuts"_s;
const QString Registry = u"org.freedesktop.host.portal.Registry"_s;
const QString Request = u"org.freedesktop.portal.Request"_s;
const QString PortalSession = u"org.freedesktop.portal.Session"_s;
const QString Properties = u"org.freedesktop.DBus.Properties"_s;

constexpr int Patience = 500; // ms, of the bus itself

QDBusMessage callOf(const QString& path, const QString& interface, const QString& method,
                    const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(Service, path, interface, method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                               u"org.freedesktop.DBus"_s, method);
    call.setArguments(arguments);
    return call;
}

QString nextConnectionName()
{
    static int number = 0;
    return u"tarnwick global shortcuts %1"_s.arg(++number);
}

} // namespace

PortalHotKeys::PortalHotKeys(QString address, Session session)
    : GlobalHotKeys(std::move(session)), _address(std::move(address))
{
    registerPortalTypes();
    _connect();
}

PortalHotKeys::~PortalHotKeys()
{
    _endSession();
    _disconnect();
}

bool PortalHotKeys::isOffered(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return false;
    const auto owned = bus.call(busCall(u"NameHasOwner"_s, {Service}), QDBus::Block, Patience);
    if (owned.arguments().value(0).toBool())
        return true;
    const auto names = bus.call(busCall(u"ListActivatableNames"_s, {}), QDBus::Block, Patience);
    return names.arguments().value(0).toStringList().contains(Service);
}

TriggerHint PortalHotKeys::hotKeyHint(quint32 keyCode, quint32 modifiers) const
{
    const auto found = std::ranges::find_if(registered(), [&](const auto& entry) {
        return entry.second.keyCode == keyCode && entry.second.modifiers == modifiers;
    });
    if (found == registered().end())
        return {};
    const QString granted = _granted.value(found->second.action);
    switch (_state) {
    case State::Asked:
        return {TriggerHint::Kind::Asked};
    case State::Refused:
        return {TriggerHint::Kind::Refused};
    case State::Answered:
        if (!granted.isEmpty())
            return {TriggerHint::Kind::Granted, granted};
        break; // it knows of the shortcut, and no keys for it
    case State::Idle:
    case State::NotOffered:
    case State::Looking: // the most say no: the preferences are not to change before the person's eyes
        break;
    }
    return configurationHint(keyCode, modifiers);
}

void PortalHotKeys::setBus(const QDBusConnection& bus)
{
    _disconnect();
    if (bus.isConnected())
        _connect();
    _beginAgain();
}

bool PortalHotKeys::take(const Registered& /*hotKey*/, const TriggerKey& /*key*/)
{
    _beginAgain();
    return true;
}

void PortalHotKeys::giveBack(const Registered& hotKey)
{
    _granted.remove(hotKey.action);
    _beginAgain();
}

void PortalHotKeys::_connect()
{
    _connectionName = nextConnectionName();
    const auto bus = QDBusConnection::connectToBus(_address, _connectionName);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(_connectionName);
        return;
    }
    _bus = bus;
    _watcher = std::make_unique<QDBusServiceWatcher>(Service, bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(_watcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*name*/, const QString& former, const QString& owner) {
                if (!former.isEmpty())
                    _portalGone();
                if (!owner.isEmpty() && _state != State::Looking) // else it is being started for us
                    _beginAgain();
            });
    _bus->connect(Service, Path, Shortcuts, u"Activated"_s, this,
                  SLOT(_activated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    _bus->connect(Service, Path, Shortcuts, u"Deactivated"_s, this,
                  SLOT(_deactivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    _bus->connect(Service, Path, Shortcuts, u"ShortcutsChanged"_s, this,
                  SLOT(_shortcutsChanged(QDBusMessage)));
}

void PortalHotKeys::_disconnect()
{
    _forgetRequest();
    _session.clear();
    _watcher.reset();
    if (std::exchange(_bus, std::nullopt))
        QDBusConnection::disconnectFromBus(_connectionName);
}

void PortalHotKeys::_portalGone()
{
    ++_round;
    _offered = false;
    _forgetRequest();
    _session.clear();
    _granted.clear();
    if (_state != State::Idle)
        _setState(State::NotOffered);
}

/// A session binds once: other keys need another one.
void PortalHotKeys::_beginAgain()
{
    ++_round;
    _endSession();
    _granted.clear();
    if (registered().empty())
        _setState(State::Idle);
    else if (!_bus)
        _setState(State::NotOffered);
    else
        _begin();
}

void PortalHotKeys::_begin()
{
    _setState(_offered ? State::Asked : State::Looking);
    // An older portal does not have it, and asks the service manager for the program.
    _bus->asyncCall(callOf(Path, Registry, u"Register"_s, {desktop_names::BusName, QVariantMap()}));
    auto* const version = new QDBusPendingCallWatcher(
        _bus->asyncCall(callOf(Path, Properties, u"Get"_s, {Shortcuts, u"version"_s})), this);
    connect(version, &QDBusPendingCallWatcher::finished, this,
            [this, round = _round](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (round != _round)
                    return;
                _offered = !finished->isError();
                if (!_offered) {
                    _setState(State::NotOffered);
                    return;
                }
                _setState(State::Asked);
                _createSession();
            });
}

void PortalHotKeys::_createSession()
{
    const QString token = u"tarnwick%1"_s.arg(++_tokens);
    _request(u"CreateSession"_s, {}, {{u"session_handle_token"_s, token}}, &PortalHotKeys::_sessionCreated);
}

void PortalHotKeys::_sessionCreated(const QVariantMap& results)
{
    const QVariant handle = results.value(u"session_handle"_s);
    _session =
        handle.canConvert<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : handle.toString();
    if (_session.isEmpty()) {
        _setState(State::Refused);
        return;
    }
    _bus->connect(Service, _session, PortalSession, u"Closed"_s, this, SLOT(_sessionClosed(QDBusMessage)));
    _bind();
}

void PortalHotKeys::_bind()
{
    QList<PortalShortcut> wanted;
    for (const auto& [ref, hotKey] : registered()) {
        const auto key = keyOf(hotKey.keyCode, hotKey.modifiers);
        const QString description = GlobalHotKeys::actionName();
        const QString trigger = key ? trigger_notation::portalTrigger(*key) : QString();
        wanted.append({hotKey.action, {{u"description"_s, description}, {u"preferred_trigger"_s, trigger}}});
    }
    _request(u"BindShortcuts"_s,
             {QVariant::fromValue(QDBusObjectPath(_session)), QVariant::fromValue(wanted), QString()}, {},
             &PortalHotKeys::_bound);
}

void PortalHotKeys::_bound(const QVariantMap& results)
{
    _takeDescriptions(qdbus_cast<QList<PortalShortcut>>(results.value(u"shortcuts"_s)));
    _setState(State::Answered);
}

void PortalHotKeys::_request(const QString& method, QVariantList arguments, QVariantMap options,
                             void (PortalHotKeys::*then)(const QVariantMap& results))
{
    _forgetRequest();
    const QString token = u"tarnwick%1"_s.arg(++_tokens);
    const QString sender = _bus->baseService().mid(1).replace(u'.', u'_');
    _requestPath = Path + u"/request/"_s + sender + u'/' + token;
    _then = then;
    // Before the call: the answer may be the next thing that comes.
    _bus->connect(Service, _requestPath, Request, u"Response"_s, this, SLOT(_answered(uint, QVariantMap)));
    options.insert(u"handle_token"_s, token);
    arguments.append(options);
    auto* const call =
        new QDBusPendingCallWatcher(_bus->asyncCall(callOf(Path, Shortcuts, method, arguments)), this);
    connect(call, &QDBusPendingCallWatcher::finished, this,
            [this, path = _requestPath](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (!finished->isError() || path != _requestPath)
                    return;
                _forgetRequest();
                _setState(State::Refused);
            });
}

void PortalHotKeys::_answered(uint response, const QVariantMap& results)
{
    const auto then = _then;
    if (!then)
        return;
    _forgetRequest();
    if (response == 0)
        (this->*then)(results);
    else
        _setState(State::Refused);
}

void PortalHotKeys::_forgetRequest()
{
    if (_bus && !_requestPath.isEmpty())
        _bus->disconnect(Service, _requestPath, Request, u"Response"_s, this,
                         SLOT(_answered(uint, QVariantMap)));
    _requestPath.clear();
    _then = nullptr;
}

void PortalHotKeys::_endSession()
{
    if (_bus && !_requestPath.isEmpty()) // takes a dialog away, too
        _bus->asyncCall(callOf(_requestPath, Request, u"Close"_s, {}));
    _forgetRequest();
    if (!_bus || _session.isEmpty())
        return;
    _bus->disconnect(Service, _session, PortalSession, u"Closed"_s, this, SLOT(_sessionClosed(QDBusMessage)));
    _bus->asyncCall(callOf(_session, PortalSession, u"Close"_s, {}));
    _session.clear();
}

void PortalHotKeys::_setState(State state)
{
    _state = state;
    changed();
}

bool PortalHotKeys::_knows(const QDBusObjectPath& session, const QString& id) const
{
    return !_session.isEmpty() && session.path() == _session &&
           std::ranges::any_of(registered(), [&](const auto& entry) { return entry.second.action == id; });
}

void PortalHotKeys::_activated(const QDBusObjectPath& session, const QString& id, qulonglong /*time*/,
                               const QVariantMap& /*options*/)
{
    if (_knows(session, id))
        presses().pressed();
}

void PortalHotKeys::_deactivated(const QDBusObjectPath& session, const QString& id, qulonglong /*time*/,
                                 const QVariantMap& /*options*/)
{
    if (_knows(session, id))
        presses().released();
}

void PortalHotKeys::_shortcutsChanged(const QDBusMessage& message)
{
    if (message.signature() != u"oa(sa{sv})" ||
        message.arguments().value(0).value<QDBusObjectPath>().path() != _session)
        return;
    _takeDescriptions(qdbus_cast<QList<PortalShortcut>>(message.arguments().value(1)));
    changed();
}

void PortalHotKeys::_takeDescriptions(const QList<PortalShortcut>& shortcuts)
{
    for (const PortalShortcut& shortcut : shortcuts)
        _granted.insert(shortcut.id, shortcut.properties.value(u"trigger_description"_s).toString());
}

/// By the desktop. Asking again at once might show its dialog again and again. Of an earlier session it may
/// come late.
void PortalHotKeys::_sessionClosed(const QDBusMessage& message)
{
    if (message.path() != _session)
        return;
    _session.clear();
    _granted.clear();
    _setState(State::Refused);
}

} // namespace tarnwick

#include "moc_PortalHotKeys.cpp"
