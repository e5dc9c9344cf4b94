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
struct MacHotKey final : MacHandle
{
};
struct MacHotKeyMode final : MacHandle
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

struct MacCarbonEvent final : MacHandle
{
    double time = 0;
};

/// Offers an event to its handlers, the newest first, until one takes it.
bool offer(const MacState::WaitingEvent& waiting)
{
    auto* event = objects().make<MacCarbonEvent>();
    MacObjects::hold(event);
    event->time = waiting.time;
    const auto handlers = state().handlers;
    for (auto each = handlers.crbegin(); each != handlers.crend(); ++each) {
        if (each->type.eventClass == waiting.eventClass && each->type.eventKind == waiting.eventKind &&
            each->handler(nullptr, referenceTo<EventRef>(event), each->userData) == noErr)
            return true;
    }
    return false;
}

/// At once, or when the open menu has closed.
bool dispatch(OSType eventClass, UInt32 eventKind)
{
    const MacState::WaitingEvent event{eventClass, eventKind, ++mac().now};
    if (!mac().menuIsOpen)
        return offer(event);
    state().waitingEvents.append(event);
    return false;
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

bool SimulatedMac::activate(qint64 processIdentifier)
{
    if (processIdentifier == _activeProcess)
        return false;
    _activeProcess = processIdentifier;
    const AxNodeRef focused = application(processIdentifier);
    if (systemWide)
        systemWide->set(u"AXFocusedApplication"_s, focused ? QVariant::fromValue(focused) : QVariant());
    if (activated)
        activated();
    return dispatch(kEventClassApplication, kEventAppFrontSwitched);
}

int SimulatedMac::deliverEvents()
{
    int taken = 0;
    while (!menuIsOpen && !state().waitingEvents.isEmpty())
        taken += offer(state().waitingEvents.takeFirst()) ? 1 : 0;
    return taken;
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
            each.callBack(each.center, each.observer, kTISNotifySelectedKeyboardInputSourceChanged, nullptr,
                          nullptr);
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
    return state().symbolicModes;
}

} // namespace tarnwick

const CFStringRef kTISPropertyUnicodeKeyLayoutData =
    constantString<CFStringRef>(u"TISPropertyUnicodeKeyLayoutData"_s);
const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged =
    constantString<CFStringRef>(u"com.apple.Carbon.TISNotifySelectedKeyboardInputSourceChanged"_s);

EventTargetRef GetApplicationEventTarget()
{
    static const auto target = constantHandle<EventTargetRef>(u"GetApplicationEventTarget"_s);
    const MacCall call(__func__);
    return call.fails() ? nullptr : target;
}

EventTime GetCurrentEventTime()
{
    const MacCall call(__func__);
    return call.fails() ? 0 : ++mac().now;
}

EventTime GetEventTime(EventRef event)
{
    const MacCall call(__func__, event);
    const auto* object = objects().find<MacCarbonEvent>(event);
    return object && !call.fails() ? object->time : 0;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef)
{
    const MacCall call(__func__, target, handler, typeCount, types[0].eventClass, types[0].eventKind,
                       userData, handlerRef);
    if (call.fails())
        return call.status();
    if (!target || !handler)
        return paramErr;
    for (ItemCount i = 0; i < typeCount; ++i)
        state().handlers.append({types[i], handler, userData});
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* hotKey)
{
    const MacCall call(__func__, keyCode, modifiers, id.signature, id.id, target, options, hotKey);
    if (call.fails())
        return call.status();
    if (!target)
        return paramErr;
    for (const auto& each : std::as_const(state().hotKeys)) {
        if (each.hotKey.keyCode == keyCode && each.hotKey.modifiers == modifiers)
            return eventHotKeyExistsErr;
    }
    *hotKey = handOut<EventHotKeyRef>(objects().make<MacHotKey>(), call);
    state().hotKeys.append({{keyCode, modifiers, id.signature, id.id}, *hotKey});
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey)
{
    const MacCall call(__func__, hotKey);
    if (call.fails())
        return call.status();
    if (!objects().find<MacHotKey>(hotKey))
        return eventHotKeyInvalidErr;
    objects().release(hotKey);
    const auto removed = state().hotKeys.removeIf([&](const auto& each) { return each.reference == hotKey; });
    return removed ? OSStatus(noErr) : OSStatus(eventHotKeyInvalidErr);
}

OSStatus CopySymbolicHotKeys(CFArrayRef* hotKeys)
{
    const MacCall call(__func__, hotKeys);
    if (call.fails())
        return call.status();
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
    *hotKeys = handOut<CFArrayRef>(objectFor(list), call);
    return noErr;
}

void* PushSymbolicHotKeyMode(OptionBits options)
{
    const MacCall call(__func__, options);
    if (call.fails())
        return nullptr;
    ++state().symbolicModes;
    return handOut<void*>(objects().make<MacHotKeyMode>(), call);
}

void PopSymbolicHotKeyMode(void* token)
{
    const MacCall call(__func__, token);
    if (!objects().find<MacHotKeyMode>(token) || call.fails())
        return;
    objects().release(token);
    --state().symbolicModes;
}

TISInputSourceRef TISCopyCurrentKeyboardInputSource()
{
    const MacCall call(__func__);
    if (!mac().inputSource || call.fails())
        return nullptr;
    auto* source = objects().make<MacInputSource>();
    if (mac().inputSource->hasKeyLayout) {
        source->holds = objectFor(QByteArray(KeyLayoutMarker));
        MacObjects::hold(source->holds);
    }
    return handOut<TISInputSourceRef>(source, call);
}

void* TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef property)
{
    const MacCall call(__func__, source, property);
    auto* object = objects().find<MacInputSource>(source);
    const bool isLayout = textOf(property) == textOf(kTISPropertyUnicodeKeyLayoutData);
    return object && isLayout && !call.fails() ? static_cast<void*>(object->holds) : nullptr;
}

UInt8 LMGetKbdType()
{
    const MacCall call(__func__);
    return call.fails() ? UInt8(0) : mac().keyboardType;
}

OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits options,
                        UInt32* deadKeyState, UniCharCount maxLength, UniCharCount* actualLength,
                        UniChar units[])
{
    const MacCall call(__func__, layout, virtualKeyCode, keyAction, modifierKeyState, keyboardType, options,
                       *deadKeyState, maxLength, actualLength, units);
    if (!layout || std::memcmp(layout, KeyLayoutMarker, sizeof KeyLayoutMarker - 1) != 0) {
        mac().fault(u"the key layout is not the input source's"_s);
        return paramErr;
    }
    if (call.fails())
        return call.status();
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
    const MacCall call(__func__, eventClass, eventId, handler, context, bool(isSystemHandler));
    if (call.fails())
        return static_cast<OSErr>(call.status());
    state().reopenHandlers.append({handler, context});
    return noErr;
}
