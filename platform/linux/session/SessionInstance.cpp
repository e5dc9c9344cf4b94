// SPDX-License-Identifier: MIT
#include "platform/linux/session/SessionInstance.h"

#include "platform/linux/session/PopUpParameter.h"
#include "platform/linux/xdg/DesktopNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int ClaimAttempts = 3;
// The running instance may be waiting for a slow application just then; the request reaches it later.
constexpr int ActivateTimeout = 1000;

// The right to come to the front that a compositor has given to whoever was started: the toolkit takes it
// from the environment when it activates a window.
constexpr char TokenVariable[] = "XDG_ACTIVATION_TOKEN";
const QString TokenKey = u"activation-token"_s;

} // namespace

SessionInstance::SessionInstance(const QDBusConnection& bus) : _bus(bus)
{
    if (!_bus.isConnected())
        return;
    // The object is there before the name, so that no request finds the name without it.
    _bus.registerObject(desktop_names::ObjectPath, this, QDBusConnection::ExportAllSlots);
    _claim();
}

SessionInstance::~SessionInstance()
{
    if (!_bus.isConnected())
        return;
    _bus.unregisterObject(desktop_names::ObjectPath);
    if (!_anotherIsRunning)
        _bus.unregisterService(desktop_names::BusName);
}

void SessionInstance::setBus(const QDBusConnection& bus)
{
    _bus = bus;
    if (!_bus.isConnected())
        return;
    _bus.registerObject(desktop_names::ObjectPath, this, QDBusConnection::ExportAllSlots);
    _bus.interface()->registerService(desktop_names::BusName, QDBusConnectionInterface::QueueService,
                                      QDBusConnectionInterface::DontAllowReplacement);
}

void SessionInstance::setRequested(Requested requested)
{
    _requested = std::move(requested);
    _deliver();
}

void SessionInstance::Activate(const QVariantMap& platformData)
{
    const QString token = platformData.value(TokenKey).toString();
    if (!token.isEmpty())
        qputenv(TokenVariable, token.toUtf8());
    _request(Request::Show);
}

void SessionInstance::Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {}

void SessionInstance::ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& /*platformData*/)
{
    if (action == desktop_names::PopUpAction)
        _request(Request::PopUp, popUpParameter(parameter));
    else if (action == desktop_names::PopUpByPointerAction)
        _request(Request::PopUpByPointer, popUpParameter(parameter));
    else if (action == desktop_names::SearchAction)
        _request(Request::Search, popUpParameter(parameter));
}

void SessionInstance::_request(Request request, const FrontHint& hint)
{
    const auto known = std::ranges::find(_waiting, request, &std::pair<Request, FrontHint>::first);
    if (known == _waiting.end())
        _waiting.append({request, hint});
    else
        known->second = hint;
    _deliver();
}

void SessionInstance::_claim()
{
    // The other instance may end between the refusal of its name and our request to it: then the name is
    // free.
    for (int attempt = 0; attempt < ClaimAttempts; ++attempt) {
        _anotherIsRunning = false;
        const auto reply = _bus.interface()->registerService(desktop_names::BusName,
                                                             QDBusConnectionInterface::DontQueueService,
                                                             QDBusConnectionInterface::DontAllowReplacement);
        if (!reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered)
            return;
        _anotherIsRunning = true;
        if (_activateOther())
            return;
    }
}

bool SessionInstance::_activateOther()
{
    auto request = QDBusMessage::createMethodCall(desktop_names::BusName, desktop_names::ObjectPath,
                                                  u"org.freedesktop.Application"_s, u"Activate"_s);
    request.setAutoStartService(false);
    QVariantMap platformData;
    if (const QString token = qEnvironmentVariable(TokenVariable); !token.isEmpty())
        platformData.insert(TokenKey, token);
    request.setArguments({platformData});
    const QDBusMessage reply = _bus.call(request, QDBus::Block, ActivateTimeout);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return true;
    const QString error = reply.errorName();
    return error == u"org.freedesktop.DBus.Error.NoReply"_s ||
           error == u"org.freedesktop.DBus.Error.Timeout"_s;
}

void SessionInstance::_deliver()
{
    if (!_requested)
        return;
    const auto waiting = std::exchange(_waiting, {});
    for (const auto& [request, hint] : waiting)
        QMetaObject::invokeMethod(
            this, [requested = _requested, request = request, hint = hint] { requested(request, hint); },
            Qt::QueuedConnection);
}

} // namespace tarnwick

#include "moc_SessionInstance.cpp"
