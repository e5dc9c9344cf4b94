// SPDX-License-Identifier: MIT
// Simulated Carbon: event handlers, hot keys, symbolic hot keys, text input sources, Apple events.
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <Carbon/Carbon.h>
#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;
using namespace tarnwick;

struct UCKeyboardLayout
{
    char marker[4];
};

namespace {

constexpr char KeyLayoutMarker[] = "keys";

struct MacInputSource final : MacHandle
{
};

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}
MacState& state()
{
    return MacState::instance();
}
MacObjects& objects()
{
    return MacObjects::instance();
}

/// Offers an event to its handlers, the newest first, until one takes it.
bool dispatch(OSType eventClass, UInt32 eventKind)
{
    const auto handlers = state().handlers;
    for (auto each = handlers.crbegin(); each != handlers.crend(); ++each) {
        if (each->type.eventClass == eventClass && each->type.eventKind == eventKind &&
            each->handler(nullptr, nullptr, each->userData) == noErr)
            return true;
    }
    return false;
}

CFStringRef permanentString(const char16_t* text)
{
    auto* string = objects().makePermanent<MacString>();
    string->text = QString::fromUtf16(text);
    return referenceTo<CFStringRef>(string);
}

} // namespace

namespace tarnwick {

bool SimulatedMac::pressHotKey(const HotKey& hotKey)
{
    const auto& all = state().hotKeys;
    const bool registered = std::any_of(all.cbegin(), all.cend(), [&](const auto& each) {
        return each.hotKey.keyCode == hotKey.keyCode && each.hotKey.modifiers == hotKey.modifiers;
    });
    return registered && dispatch(kEventClassKeyboard, kEventHotKeyPressed);
}

void SimulatedMac::switchFront()
{
    dispatch(kEventClassApplication, kEventAppFrontSwitched);
}

std::optional<int> SimulatedMac::reopen()
{
    if (state().reopenHandlers.isEmpty())
        return std::nullopt;
    const auto handler = state().reopenHandlers.last();
    return handler.handler(nullptr, nullptr, handler.context);
}

void SimulatedMac::changeInputSource(const InputSource& source)
{
    inputSource = source;
    const auto observers = state().observers;
    for (const auto& each : observers) {
        if (each.name == textOf(kTISNotifySelectedKeyboardInputSourceChanged))
            each.callBack(CFNotificationCenterGetDistributedCenter(), each.observer,
                          kTISNotifySelectedKeyboardInputSourceChanged, nullptr, nullptr);
    }
}

QList<SimulatedMac::HotKey> SimulatedMac::registeredHotKeys() const
{
    QList<HotKey> all;
    for (const auto& each : state().hotKeys)
        all.append(each.hotKey);
    return all;
}

int SimulatedMac::symbolicModesPushed() const
{
    return static_cast<int>(state().symbolicModes.size());
}

} // namespace tarnwick

const CFStringRef kTISPropertyUnicodeKeyLayoutData = permanentString(u"TISPropertyUnicodeKeyLayoutData");
const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged =
    permanentString(u"com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged");

EventTargetRef GetApplicationEventTarget()
{
    static char target = 0;
    return reinterpret_cast<EventTargetRef>(&target);
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef)
{
    mac().record(u"InstallEventHandler"_s, {target == GetApplicationEventTarget(), qulonglong(typeCount),
                                            types[0].eventClass, types[0].eventKind, handlerRef == nullptr});
    if (const auto status = mac().failure(u"InstallEventHandler"_s))
        return *status;
    for (ItemCount i = 0; i < typeCount; ++i)
        state().handlers.append({types[i], handler, userData});
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* hotKey)
{
    mac().record(u"RegisterEventHotKey"_s,
                 {keyCode, modifiers, id.signature, id.id, target == GetApplicationEventTarget(), options});
    if (const auto status = mac().failure(u"RegisterEventHotKey"_s))
        return *status;
    for (const auto& each : std::as_const(state().hotKeys)) {
        if (each.hotKey.keyCode == keyCode && each.hotKey.modifiers == modifiers)
            return eventHotKeyExistsErr;
    }
    *hotKey = reinterpret_cast<EventHotKeyRef>(state().lastToken += 16);
    state().hotKeys.append({{keyCode, modifiers, id.signature, id.id}, *hotKey});
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey)
{
    mac().record(u"UnregisterEventHotKey"_s, {qulonglong(reinterpret_cast<quintptr>(hotKey))});
    if (const auto status = mac().failure(u"UnregisterEventHotKey"_s))
        return *status;
    const auto removed = state().hotKeys.removeIf([&](const auto& each) { return each.reference == hotKey; });
    if (removed == 0)
        mac().fault(u"a hot key was unregistered that is none"_s);
    return removed ? OSStatus(noErr) : OSStatus(eventHotKeyInvalidErr);
}

OSStatus CopySymbolicHotKeys(CFArrayRef* hotKeys)
{
    mac().record(u"CopySymbolicHotKeys"_s);
    if (const auto status = mac().failure(u"CopySymbolicHotKeys"_s))
        return *status;
    QVariantList list;
    for (const auto& each : std::as_const(mac().systemHotKeys)) {
        QVariantMap entry;
        const std::pair<const char*, QVariant> values[] = {{"kHISymbolicHotKeyEnabled", each.enabled},
                                                           {"kHISymbolicHotKeyCode", each.code},
                                                           {"kHISymbolicHotKeyModifiers", each.modifiers}};
        for (const auto& [key, value] : values) {
            if (value.isValid())
                entry.insert(QString::fromLatin1(key), value);
        }
        list.append(entry);
    }
    *hotKeys = handOut<CFArrayRef>(objectFor(list), u"CopySymbolicHotKeys"_s);
    return noErr;
}

void* PushSymbolicHotKeyMode(OptionBits options)
{
    mac().record(u"PushSymbolicHotKeyMode"_s, {options});
    if (mac().failure(u"PushSymbolicHotKeyMode"_s))
        return nullptr;
    state().symbolicModes.append(state().lastToken += 16);
    return reinterpret_cast<void*>(state().symbolicModes.last());
}

void PopSymbolicHotKeyMode(void* token)
{
    mac().record(u"PopSymbolicHotKeyMode"_s, {qulonglong(reinterpret_cast<quintptr>(token))});
    if (!state().symbolicModes.removeOne(reinterpret_cast<quintptr>(token)))
        mac().fault(u"a symbolic hot key mode was popped that was not pushed"_s);
}

TISInputSourceRef TISCopyCurrentKeyboardInputSource()
{
    mac().record(u"TISCopyCurrentKeyboardInputSource"_s);
    if (!mac().inputSource)
        return nullptr;
    auto* source = objects().make<MacInputSource>();
    if (mac().inputSource->hasKeyLayout) {
        source->holds = objectFor(QByteArray(KeyLayoutMarker));
        MacObjects::hold(source->holds);
    }
    return handOut<TISInputSourceRef>(source, u"TISCopyCurrentKeyboardInputSource"_s);
}

void* TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef property)
{
    mac().record(u"TISGetInputSourceProperty"_s, {textOf(property)});
    auto* object = objects().find<MacInputSource>(source);
    const bool isLayout = textOf(property) == textOf(kTISPropertyUnicodeKeyLayoutData);
    return object && isLayout ? static_cast<void*>(object->holds) : nullptr;
}

UInt8 LMGetKbdType()
{
    return mac().keyboardType;
}

OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits options,
                        UInt32* deadKeyState, UniCharCount maxLength, UniCharCount* actualLength,
                        UniChar units[])
{
    mac().record(u"UCKeyTranslate"_s, {virtualKeyCode, keyAction, modifierKeyState, keyboardType, options,
                                       *deadKeyState, qulonglong(maxLength)});
    if (std::memcmp(layout, KeyLayoutMarker, sizeof KeyLayoutMarker - 1) != 0)
        mac().fault(u"the key layout is not the input source's"_s);
    if (const auto status = mac().failure(u"UCKeyTranslate"_s))
        return *status;
    const QString typed = mac().inputSource->characters.value({virtualKeyCode, modifierKeyState});
    *actualLength = std::min<UniCharCount>(maxLength, static_cast<UniCharCount>(typed.size()));
    for (UniCharCount i = 0; i < *actualLength; ++i)
        units[i] = typed.at(static_cast<qsizetype>(i)).unicode();
    *deadKeyState = 7;
    return noErr;
}

OSErr AEInstallEventHandler(AEEventClass eventClass, AEEventID eventId, AEEventHandlerUPP handler,
                            SRefCon context, Boolean isSystemHandler)
{
    mac().record(u"AEInstallEventHandler"_s, {eventClass, eventId, bool(isSystemHandler)});
    if (const auto status = mac().failure(u"AEInstallEventHandler"_s))
        return static_cast<OSErr>(*status);
    state().reopenHandlers.append({handler, context});
    return noErr;
}
