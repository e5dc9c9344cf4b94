// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11KeyboardGrab.h"
#include "platform/linux/input/X11RawInput.h"
#include "platform/linux/popup/PopUpState.h"
#include "platform/linux/popup/X11PopUpFocus.h"
#include "platform/linux/popup/X11PopUpKeys.h"
#include "platform/linux/popup/X11PopUpPointer.h"
#include "platform/linux/x11/X11EventFilter.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace tarnwick {

/// Keyboard and pointer for one showing of a pop-up, while the application in front keeps its focus. Keys are
/// handed to a window of ours (the toolkit gives them to the pop-up), modifier keys never are; the keys that
/// are down at the start, the hot key and its modifiers, go nowhere until they are up. Signals come from
/// inside the native event filter or a timer: receivers must not run an event loop in them. All grabs are
/// back when it is destroyed. GUI thread only.
class X11PopUpInput : public QObject, public X11EventFilter
{
    Q_OBJECT

public:
    /// `keeper`: a viewable window of the toolkit that keys and pointer events are handed to.
    X11PopUpInput(X11Connection& connection, xcb_window_t keeper);
    ~X11PopUpInput() override;

    /// Takes the keyboard, and the pointer unless a button holds it, in which case it follows at the release.
    /// False, with nothing held, when another client keeps them.
    [[nodiscard]] bool begin();
    /// For the pop-up that is on the screen by now: the keys that were pressed since the hot key, as if they
    /// were pressed now. Those that come later wait for them.
    void typeAhead();
    /// Whether the pointer is ours now.
    [[nodiscard]] bool hasPointer() const { return _pointer.held(); }

    /// From now on everything is swallowed, but that keys are handed to the root window, where nobody but a
    /// hot key takes them; `settled` follows when no key that went to us and no button is down any more, at
    /// the latest after 0.6 s. True when that is so at once.
    [[nodiscard]] bool settle();

    /// Gives everything back and waits for the server to have done it. True when the focus is still where it
    /// was.
    [[nodiscard]] bool end();

    /// The modifiers held now, as menus mean them; not those that are down since the start.
    [[nodiscard]] quint64 menuModifierFlags() const { return _keys.menuModifierFlags(); }
    /// Those that were held when the keyboard was taken.
    [[nodiscard]] quint64 menuModifierFlagsAtStart() const { return _keys.menuModifierFlagsAtStart(); }

Q_SIGNALS:
    void menuModifierFlagsMayHaveChanged();
    /// The pop-up has lost its ground: the focus went elsewhere, or the pointer can't be had.
    void lost();
    /// The pointer is ours, which it was not before.
    void pointerTaken();
    /// A button was pressed while the pointer isn't ours; the place is where the pointer is now.
    void pressedElsewhere();
    /// The button that was down at the start is being dragged, or has been released after that.
    void dragged();
    void dragReleased();
    void settled();

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    void _followPieces();
    void _followRawInput();
    /// Whether the toolkit is not to see the key.
    [[nodiscard]] bool _filterKey(xcb_key_press_event_t& event);
    /// The same for a key that has not been sent to the keeper by ourselves.
    [[nodiscard]] bool _filterUsersKey(xcb_key_press_event_t& event);
    [[nodiscard]] bool _filterPress(xcb_key_press_event_t& event);
    void _modifierPressed(quint8 keyCode);
    void _released(const xcb_key_press_event_t& event);
    void _modifiersMayHaveChanged();

    /// Goes on to the state that follows the event, which sets the timer.
    void _after(PopUpEvent event);
    void _timeout();
    void _yield();
    void _takeBackIfModifiersUp();
    void _takeBack();
    [[nodiscard]] bool _takeKeyboardInFront(int attempts);
    void _focusMoved();
    void _settleIfUp();
    [[nodiscard]] bool _isUp() const;

    X11Connection& _connection;
    X11KeyboardGrab _keyboard;
    X11PopUpKeys _keys;
    X11PopUpPointer _pointer;
    X11PopUpFocus _focus;
    std::optional<X11RawInput::KeyWatch> _keyWatch;

    PopUpState _state = PopUpState::Ended;
    QTimer _timer;            ///< what the state waits for is looked at when it ends
    QDeadlineTimer _deadline; ///< for what the state waits for
};

} // namespace tarnwick
