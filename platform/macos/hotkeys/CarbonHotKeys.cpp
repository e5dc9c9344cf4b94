// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/CarbonHotKeys.h"

#include "platform/qt/menu/MenuTracking.h"

#include <Carbon/Carbon.h>
#include <utility>

namespace tarnwick {
namespace {

static_assert(kEventClassKeyboard == 0x6B657962 && kEventHotKeyPressed == 5); // "keyb"
static_assert(cmdKey == 0x100 && shiftKey == 0x200 && optionKey == 0x800 && controlKey == 0x1000);
static_assert(OSStatus{::noErr} == HotKeys::noErr);

constexpr quint32 HighestKeyCode = 127;

} // namespace

CarbonHotKeys::CarbonHotKeys()
{
    QObject::connect(&MenuTracking::shared(), &MenuTracking::ended, &_whileThere,
                     [this] { _menuClosed = GetCurrentEventTime(); });
}

void CarbonHotKeys::installEventHandler(std::function<qint32()> handler)
{
    _handlers.push_back({this, std::move(handler)});
    const EventTypeSpec type{kEventClassKeyboard, kEventHotKeyPressed};
    const auto pressed = [](EventHandlerCallRef, EventRef event, void* userData) -> OSStatus {
        return _pressed(*static_cast<const Handler*>(userData), GetEventTime(event));
    };
    InstallEventHandler(GetApplicationEventTarget(), pressed, 1, &type, &_handlers.back(), nullptr);
}

std::optional<EventHotKeyRef> CarbonHotKeys::registerEventHotKey(quint32 keyCode, quint32 modifiers,
                                                                 EventHotKeyID id, quint32 options)
{
    if (keyCode > HighestKeyCode)
        return std::nullopt;
    ::EventHotKeyRef hotKey = nullptr;
    const ::EventHotKeyID identity{id.signature, id.id};
    if (RegisterEventHotKey(keyCode, modifiers, identity, GetApplicationEventTarget(), options, &hotKey) !=
        ::noErr)
        return std::nullopt;
    _registered.insert(++_last, hotKey);
    return _last;
}

bool CarbonHotKeys::unregisterEventHotKey(EventHotKeyRef hotKey)
{
    // A dead reference never reaches the system, which may have given its address to another hot key.
    auto* registered = static_cast<::EventHotKeyRef>(_registered.take(hotKey));
    return registered && UnregisterEventHotKey(registered) == ::noErr;
}

qint32 CarbonHotKeys::_pressed(const Handler& handler, double time)
{
    const bool whileAMenuWasOpen = time > 0 && time < handler.hotKeys->_menuClosed;
    return whileAMenuWasOpen ? noErr : handler.pressed();
}

} // namespace tarnwick
