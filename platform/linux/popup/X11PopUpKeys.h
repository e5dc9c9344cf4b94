// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/input/X11ModifierMap.h"
#include "platform/qt/menu/PopUpKeys.h"
#include "platform/qt/menu/TypeAhead.h"

namespace tarnwick {

/// The keys of one showing of a pop-up as events of the X server, which are handed to a window of the
/// toolkit, the keeper. GUI thread only.
class X11PopUpKeys
{
public:
    struct Start
    {
        X11ModifierMap modifierMap;
        X11Keys down;          ///< the hot key and its modifiers
        quint16 modifiers = 0; ///< core modifier state
        QList<xcb_key_press_event_t> typedAhead;
    };

    X11PopUpKeys(X11Connection& connection, xcb_window_t keeper) : _connection(connection), _keeper(keeper) {}

    void start(Start start);

    [[nodiscard]] PopUpKeys::Way press(const xcb_key_press_event_t& event);
    void release(const xcb_key_press_event_t& event) { _keys.release(event.detail, event.time); }
    void up(quint8 keyCode) { _keys.up(keyCode); }

    /// Makes the event one of the keeper's, without the modifiers that are down since the start.
    void handToKeeper(xcb_key_press_event_t& event) const;
    /// By way of the server, which gives it to the toolkit as any key.
    void sendToKeeper(const xcb_key_press_event_t& event);
    /// Those that were pressed before the pop-up was there.
    [[nodiscard]] QList<xcb_key_press_event_t> takeTypedAhead() { return _typeAhead.take(); }
    /// Whether the event is one that was sent to the keeper, and comes back now.
    [[nodiscard]] bool comesBack(const xcb_key_press_event_t& event);
    /// Whether the event is for the keeper and has to go behind others that were sent to it.
    [[nodiscard]] bool hasToWait(const xcb_key_press_event_t& event) const;

    /// Whether the key is a modifier that window managers' shortcuts are made with.
    [[nodiscard]] bool isShortcutModifier(quint8 keyCode) const;
    /// Whether one of them is down now: a round trip.
    [[nodiscard]] bool anyShortcutModifierDown() const;

    /// ModifierFlag bits of the modifiers held now, without those that are down since the start: a round
    /// trip.
    [[nodiscard]] quint64 menuModifierFlags() const;
    /// The same at the start.
    [[nodiscard]] quint64 menuModifierFlagsAtStart() const;

private:
    X11Connection& _connection;
    xcb_window_t _keeper;
    X11ModifierMap _modifierMap;
    quint16 _modifiersAtStart = 0;
    PopUpKeys _keys;
    TypeAhead<xcb_key_press_event_t> _typeAhead;
};

} // namespace tarnwick
