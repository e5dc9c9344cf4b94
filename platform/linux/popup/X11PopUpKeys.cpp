// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpKeys.h"

#include "platform/linux/input/X11PointerGrab.h"
#include "platform/linux/keys/KeyCodes.h"

#include <utility>

namespace tarnwick {

namespace {

QList<quint8> keyCodesOf(const X11Keys& keys)
{
    QList<quint8> keyCodes;
    for (int keyCode = 0; keyCode <= MaximumX11KeyCode; ++keyCode)
        if (keys.test(static_cast<std::size_t>(keyCode)))
            keyCodes.append(static_cast<quint8>(keyCode));
    return keyCodes;
}

} // namespace

void X11PopUpKeys::start(Start start)
{
    _modifierMap = std::move(start.modifierMap);
    _modifiersAtStart = start.modifiers;
    _typeAhead = TypeAhead(std::move(start.typedAhead));
    const auto ofMenus = static_cast<quint16>(_modifierMap.shortcutBits() | X11ModifierMap::ShiftBit);
    _keys = PopUpKeys({[map = _modifierMap](quint8 keyCode) { return map.bitsOfKey(keyCode); }, ofMenus},
                      keyCodesOf(start.down));
}

PopUpKeys::Way X11PopUpKeys::press(const xcb_key_press_event_t& event)
{
    return _keys.press(event.detail, event.time);
}

void X11PopUpKeys::handToKeeper(xcb_key_press_event_t& event) const
{
    event.state = _keys.pressedSinceStart(event.state);
    event.event = _keeper;
}

void X11PopUpKeys::sendToKeeper(const xcb_key_press_event_t& event)
{
    xcb_send_event(_connection.get(), 0, _keeper, XCB_EVENT_MASK_NO_EVENT,
                   static_cast<const char*>(static_cast<const void*>(&event)));
    xcb_flush(_connection.get());
    _typeAhead.sent();
}

bool X11PopUpKeys::comesBack(const xcb_key_press_event_t& event)
{
    return event.event == _keeper && _typeAhead.arrives();
}

bool X11PopUpKeys::hasToWait(const xcb_key_press_event_t& event) const
{
    return event.event == _keeper && _typeAhead.isOnTheWay();
}

bool X11PopUpKeys::isShortcutModifier(quint8 keyCode) const
{
    return (_modifierMap.bitsOfKey(keyCode) & _modifierMap.shortcutBits()) != 0;
}

bool X11PopUpKeys::anyShortcutModifierDown() const
{
    return (pointerState(_connection).modifiers & _modifierMap.shortcutBits()) != 0;
}

quint64 X11PopUpKeys::menuModifierFlags() const
{
    return _modifierMap.menuModifierFlags(_keys.pressedSinceStart(pointerState(_connection).modifiers));
}

quint64 X11PopUpKeys::menuModifierFlagsAtStart() const
{
    return _modifierMap.menuModifierFlags(_keys.pressedSinceStart(_modifiersAtStart));
}

} // namespace tarnwick
