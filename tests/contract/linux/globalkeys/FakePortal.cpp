// SPDX-License-Identifier: MIT
#include "tests/contract/linux/globalkeys/FakePortal.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Service = u"org.freedesktop.portal.Desktop"_s;
const QString Path = u"/org/freedesktop/portal/desktop"_s;
const QString Shortcuts = u"org.freedesktop.portal.GlobalShortcuts"_s;

QDBusConnection connectTo(const QString& address)
{
    static int number = 0;
    return QDBusConnection::connectToBus(address, u"portal %1"_s.arg(++number));
}

/// "/org/freedesktop/portal/desktop/KIND/1_42/TOKEN" for the sender ":1.42".
QString pathFor(const QString& kind, const QDBusMessage& message, const QVariant& token)
{
    return Path + u'/' + kind + u'/' + message.service().mid(1).replace(u'.', u'_') + u'/' + token.toString();
}

} // namespace

FakePortal::FakePortal(const QString& address) : _bus(connectTo(address))
{
    registerPortalTypes();
    _bus.registerVirtualObject(Path, this, QDBusConnection::SubPath);
    appear();
}

FakePortal::~FakePortal()
{
    vanish();
    _bus.unregisterObject(Path, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(_bus.name());
}

void FakePortal::appear()
{
    // Another one that has the name gives it up.
    _bus.interface()->registerService(Service, QDBusConnectionInterface::ReplaceExistingService,
                                      QDBusConnectionInterface::AllowReplacement);
}

void FakePortal::vanish()
{
    _bus.unregisterService(Service);
    session.clear();
    bound.clear();
    _request.clear();
}

void FakePortal::answer(Person how)
{
    if (how == Person::Refuses) {
        _respond(1, {});
        return;
    }
    for (PortalShortcut& shortcut : _wanted) {
        const QString keys = grantsInstead.isEmpty()
                                 ? shortcut.properties.take(u"preferred_trigger"_s).toString()
                                 : grantsInstead;
        shortcut.properties.insert(u"trigger_description"_s, grantsNoKeys ? QString() : keys);
    }
    bound = std::exchange(_wanted, {});
    _respond(0, {{u"shortcuts"_s, QVariant::fromValue(bound)}});
}

bool FakePortal::press(const QString& keys)
{
    for (const PortalShortcut& shortcut : std::as_const(bound)) {
        if (shortcut.properties.value(u"trigger_description"_s).toString() != keys)
            continue;
        const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(session)), shortcut.id,
                                     qulonglong(1), QVariantMap()};
        _signal(Path, Shortcuts, u"Activated"_s, arguments);
        _signal(Path, Shortcuts, u"Deactivated"_s, arguments);
        return true;
    }
    return false;
}

void FakePortal::change(const QString& id, const QString& keys)
{
    bound = {{id, {{u"trigger_description"_s, keys}}}};
    _signal(Path, Shortcuts, u"ShortcutsChanged"_s,
            {QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(bound)});
}

void FakePortal::closeSession()
{
    _signal(std::exchange(session, {}), u"org.freedesktop.portal.Session"_s, u"Closed"_s, {});
    bound.clear();
}

void FakePortal::flush(const QDBusConnection& connection)
{
    static_cast<void>(connection.call(QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s)));
}

QString FakePortal::introspect(const QString& /*path*/) const
{
    return {};
}

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString method = message.member();
    const QVariantList arguments = message.arguments();
    calls.append(method);
    if (method == u"Register" && message.interface() == u"org.freedesktop.host.portal.Registry") {
        programs.append(arguments.value(0).toString());
        program = message.service();
        connection.send(message.createReply());
    } else if (method == u"Get" && arguments == QVariantList{Shortcuts, u"version"_s}) {
        connection.send(hasShortcuts
                            ? message.createReply(QVariant::fromValue(QDBusVariant(2U)))
                            : message.createErrorReply(QDBusError::InvalidArgs, u"No such interface"_s));
    } else if (method == u"CreateSession" && message.signature() == u"a{sv}") {
        _createSession(message);
    } else if (method == u"BindShortcuts" && message.signature() == u"oa(sa{sv})sa{sv}") {
        _bind(message);
    } else if (method == u"Close") {
        if (message.path() == session) {
            session.clear();
            bound.clear();
        } else if (message.path() == _request) {
            _request.clear();
            ++closedRequests;
        }
        connection.send(message.createReply());
    } else {
        return false;
    }
    return true;
}

void FakePortal::_createSession(const QDBusMessage& message)
{
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(0));
    _request = pathFor(u"request"_s, message, options.value(u"handle_token"_s));
    session = pathFor(u"session"_s, message, options.value(u"session_handle_token"_s));
    _bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(_request))));
    _respond(0, {{u"session_handle"_s, session}});
}

void FakePortal::_bind(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.value(0).value<QDBusObjectPath>().path() != session || !bound.isEmpty()) {
        _bus.send(message.createErrorReply(QDBusError::AccessDenied, u"Once a session"_s));
        return;
    }
    const auto options = qdbus_cast<QVariantMap>(arguments.value(3));
    _request = pathFor(u"request"_s, message, options.value(u"handle_token"_s));
    _wanted = qdbus_cast<QList<PortalShortcut>>(arguments.value(1));
    _bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(_request))));
    if (person != Person::IsAsked)
        answer(person);
}

void FakePortal::_respond(uint response, const QVariantMap& results)
{
    if (!_request.isEmpty())
        _signal(std::exchange(_request, {}), u"org.freedesktop.portal.Request"_s, u"Response"_s,
                {response, results});
}

void FakePortal::_signal(const QString& path, const QString& interface, const QString& name,
                         const QVariantList& arguments) const
{
    auto message = QDBusMessage::createSignal(path, interface, name);
    message.setArguments(arguments);
    _bus.send(message);
}

} // namespace tarnwick
