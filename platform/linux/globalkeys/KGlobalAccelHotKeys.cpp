// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/KGlobalAccelHotKeys.h"

#include "platform/linux/globalkeys/KGlobalAccelTypes.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/qt/menu/KeyEquivalentText.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QKeyCombination>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Service = u"org.kde.kglobalaccel"_s;
const QString Path = u"/kglobalaccel"_s;
const QString Interface = u"org.kde.KGlobalAccel"_s;
const QString ComponentInterface = u"org.kde.kglobalaccel.Component"_s;
const QString CompositorService = u"org.kde.KWin"_s;

constexpr int Patience = 500; // ms

/// How keys are set: the program is there, and they count instead of what is stored for it.
constexpr uint SetPresent = 2;
constexpr uint NoAutoloading = 4;

QString componentPath()
{
    QString name = desktop_names::BusName;
    for (QChar& character : name) {
        if (!character.isLetterOrNumber())
            character = u'_';
    }
    return u"/component/"_s + name;
}

QStringList actionId(const QString& action)
{
    return {desktop_names::BusName, action, desktop_names::ApplicationName, GlobalHotKeys::actionName()};
}

QDBusMessage callOf(const QString& method, const QVariantList& arguments)
{
    auto call = QDBusMessage::createMethodCall(Service, Path, Interface, method);
    call.setAutoStartService(false); // what would be started takes keys from an X server
    call.setArguments(arguments);
    return call;
}

QString namesOfKeys(int qtKey)
{
    const auto keys = QKeyCombination::fromCombined(qtKey);
    const Qt::KeyboardModifiers held = keys.keyboardModifiers();
    return namesOfModifiers(held.testFlag(Qt::MetaModifier), held.testFlag(Qt::ControlModifier),
                            held.testFlag(Qt::AltModifier), held.testFlag(Qt::ShiftModifier)) +
           nameOfKey(keys.key());
}

QVariantList keysOf(const QString& action, const TriggerKey& key)
{
    return {actionId(action), QVariant::fromValue(QList{KdeKeySequence::of(key.qtKey)}),
            SetPresent | NoAutoloading};
}

/// Of the answer of setShortcutKeys: 0 when none was given, nothing when that is not said.
std::optional<int> givenKey(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"a(ai)")
        return std::nullopt;
    const auto given = qdbus_cast<QList<KdeKeySequence>>(answer.arguments().value(0));
    const auto first = std::ranges::find_if(
        given, [](const KdeKeySequence& sequence) { return sequence.keys.value(0) != 0; });
    return first == given.cend() ? 0 : first->keys.value(0);
}

bool isOwned(const QDBusConnection& bus, const QString& name)
{
    auto call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                               u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    call.setArguments({name});
    return bus.call(call, QDBus::Block, Patience).arguments().value(0).toBool();
}

bool isActivatable(const QDBusConnection& bus, const QString& name)
{
    const auto call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                     u"org.freedesktop.DBus"_s, u"ListActivatableNames"_s);
    return bus.call(call, QDBus::Block, Patience).arguments().value(0).toStringList().contains(name);
}

} // namespace

KGlobalAccelHotKeys::KGlobalAccelHotKeys(const QDBusConnection& bus, Session session)
    : GlobalHotKeys(std::move(session)), _bus(bus),
      _watcher(Service, bus, QDBusServiceWatcher::WatchForRegistration)
{
    registerKGlobalAccelTypes();
    connect(&_watcher, &QDBusServiceWatcher::serviceRegistered, this, &KGlobalAccelHotKeys::_registerAgain);
    _follow();
}

KGlobalAccelHotKeys::~KGlobalAccelHotKeys()
{
    for (const auto& [ref, hotKey] : registered())
        KGlobalAccelHotKeys::giveBack(hotKey);
}

bool KGlobalAccelHotKeys::isOffered(const QDBusConnection& bus)
{
    return bus.isConnected() && isOwned(bus, CompositorService) &&
           (isOwned(bus, Service) || isActivatable(bus, Service));
}

TriggerHint KGlobalAccelHotKeys::hotKeyHint(quint32 keyCode, quint32 modifiers) const
{
    for (const auto& [ref, hotKey] : registered()) {
        if (hotKey.keyCode != keyCode || hotKey.modifiers != modifiers || !_granted.contains(hotKey.action))
            continue;
        const int granted = _granted.value(hotKey.action);
        if (granted == 0)
            return {TriggerHint::Kind::Refused};
        return {TriggerHint::Kind::Granted, namesOfKeys(granted)};
    }
    const auto owner = ownerOf(keyCode, modifiers);
    return owner ? TriggerHint{TriggerHint::Kind::Taken, *owner} : TriggerHint{};
}

TriggerHint KGlobalAccelHotKeys::mouseButtonHint(quint64 /*button*/) const
{
    return {TriggerHint::Kind::OfHotKey};
}

std::optional<QString> KGlobalAccelHotKeys::ownerOf(quint32 keyCode, quint32 modifiers) const
{
    const auto key = keyOf(keyCode, modifiers);
    if (!key)
        return std::nullopt;
    const QDBusMessage call =
        callOf(u"globalShortcutsByKey"_s,
               {QVariant::fromValue(KdeKeySequence::of(key->qtKey)), QVariant::fromValue(KdeMatch())});
    const QDBusMessage answer = _bus.call(call, QDBus::Block, Patience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"a(ssssssaiai)")
        return std::nullopt;
    const auto shortcuts = qdbus_cast<QList<KdeShortcutInfo>>(answer.arguments().value(0));
    for (const KdeShortcutInfo& shortcut : shortcuts) {
        if (shortcut.component != desktop_names::BusName)
            return shortcut.componentName + u": "_s + shortcut.actionName;
    }
    return std::nullopt;
}

void KGlobalAccelHotKeys::setBus(const QDBusConnection& bus)
{
    _stopFollowing();
    _bus = bus;
    _watcher.setConnection(bus);
    _follow();
    _registerAgain();
}

void KGlobalAccelHotKeys::layoutChanged()
{
    _registerAgain();
    GlobalHotKeys::layoutChanged();
}

bool KGlobalAccelHotKeys::take(const Registered& hotKey, const TriggerKey& key)
{
    if (!_bus.isConnected())
        return true; // until it comes back
    // One after the other on the same connection, so the second answer is waited for only.
    const auto introduced = _bus.asyncCall(callOf(u"doRegister"_s, {actionId(hotKey.action)}), Patience);
    const QDBusMessage answer =
        _bus.call(callOf(u"setShortcutKeys"_s, keysOf(hotKey.action, key)), QDBus::Block, Patience);
    const auto given = givenKey(answer);
    if (given == 0) {
        giveBack(hotKey);
        return false;
    }
    if (given)
        _granted.insert(hotKey.action, *given);
    changed();
    return true;
}

void KGlobalAccelHotKeys::giveBack(const Registered& hotKey)
{
    _granted.remove(hotKey.action);
    if (_bus.isConnected())
        _bus.asyncCall(callOf(u"unregister"_s, {desktop_names::BusName, hotKey.action}), Patience);
    changed();
}

void KGlobalAccelHotKeys::_follow()
{
    if (!_bus.isConnected())
        return;
    _bus.connect(Service, componentPath(), ComponentInterface, u"globalShortcutPressed"_s, this,
                 SLOT(_pressed(QString, QString, qlonglong)));
    _bus.connect(Service, componentPath(), ComponentInterface, u"globalShortcutReleased"_s, this,
                 SLOT(_released(QString, QString, qlonglong)));
    _bus.connect(Service, Path, Interface, u"yourShortcutsChanged"_s, this, SLOT(_keysChanged(QDBusMessage)));
}

void KGlobalAccelHotKeys::_stopFollowing()
{
    _bus.disconnect(Service, componentPath(), ComponentInterface, u"globalShortcutPressed"_s, this,
                    SLOT(_pressed(QString, QString, qlonglong)));
    _bus.disconnect(Service, componentPath(), ComponentInterface, u"globalShortcutReleased"_s, this,
                    SLOT(_released(QString, QString, qlonglong)));
    _bus.disconnect(Service, Path, Interface, u"yourShortcutsChanged"_s, this,
                    SLOT(_keysChanged(QDBusMessage)));
}

void KGlobalAccelHotKeys::_registerAgain()
{
    if (!_bus.isConnected())
        return;
    for (const auto& [ref, hotKey] : registered()) {
        const auto key = keyOf(hotKey.keyCode, hotKey.modifiers);
        if (!key)
            continue;
        _bus.asyncCall(callOf(u"doRegister"_s, {actionId(hotKey.action)}));
        auto* const answer = new QDBusPendingCallWatcher(
            _bus.asyncCall(callOf(u"setShortcutKeys"_s, keysOf(hotKey.action, *key))), this);
        connect(answer, &QDBusPendingCallWatcher::finished, this,
                [this, action = hotKey.action](QDBusPendingCallWatcher* finished) {
                    finished->deleteLater();
                    if (const auto given = givenKey(finished->reply());
                        given && _knows(desktop_names::BusName, action)) {
                        _granted.insert(action, *given);
                        changed();
                    }
                });
    }
}

bool KGlobalAccelHotKeys::_knows(const QString& component, const QString& action) const
{
    return component == desktop_names::BusName && std::ranges::any_of(registered(), [&](const auto& entry) {
               return entry.second.action == action;
           });
}

void KGlobalAccelHotKeys::_pressed(const QString& component, const QString& action, qlonglong /*time*/)
{
    if (_knows(component, action))
        presses().pressed();
}

void KGlobalAccelHotKeys::_released(const QString& component, const QString& action, qlonglong /*time*/)
{
    if (_knows(component, action))
        presses().released();
}

/// The person has changed them in the desktop's settings.
void KGlobalAccelHotKeys::_keysChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    const QStringList id = arguments.value(0).toStringList();
    if (message.signature() != u"asa(ai)" || !_knows(id.value(0), id.value(1)))
        return;
    const auto keys = qdbus_cast<QList<KdeKeySequence>>(arguments.value(1));
    _granted.insert(id.value(1), keys.isEmpty() ? 0 : keys.front().keys.value(0));
    changed();
}

} // namespace tarnwick

#include "moc_KGlobalAccelHotKeys.cpp"
