// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11HeldKeys.h"
#include "platform/linux/input/X11HotKeyGuard.h"
#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/input/X11KeyboardGrab.h"
#include "platform/linux/input/X11ModifierMap.h"
#include "platform/linux/input/X11PointerGrab.h"
#include "platform/linux/input/X11RawInput.h"

#include <QAbstractNativeEventFilter>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>
#include <set>

namespace tarnwick {

class X11Connection;

/// Keyboard and pointer for one showing of a pop-up, while the application in front keeps its focus. Keys are
/// handed to a window of ours (the toolkit gives them to the pop-up), modifier keys never are; the keys that
/// are down at the start, the hot key and its modifiers, go nowhere until they are up. Signals come from
/// inside the native event filter or a timer: receivers must not run an event loop in them. All grabs are
/// back when it is destroyed. GUI thread only.
class X11PopUpInput : public QObject, public QAbstractNativeEventFilter
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
    [[nodiscard]] quint64 menuModifierFlags() const;
    /// Those that were held when the keyboard was taken.
    [[nodiscard]] quint64 menuModifierFlagsAtStart() const;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

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

private:
    [[nodiscard]] bool _filterKeyEvent(xcb_key_press_event_t& event);
    [[nodiscard]] bool _filterKey(xcb_key_press_event_t& event, bool press);
    /// The pointer seems to leave and enter windows as it is grabbed and given back; no menu is to notice.
    [[nodiscard]] bool _isCrossingByGrab(const void* message) const;
    /// The click that opens the menu over a window of our own may come after the menu is there: the toolkit
    /// would give it to the menu, which would close.
    [[nodiscard]] bool _isClickIntoOwnWindow(const void* message);
    /// The button that is down keeps the pointer.
    void _awaitPointer(const X11PointerState& pointer);
    void _followRawInput();
    void _hold(const X11Keys& down);
    void _sendToKeeper(const xcb_key_press_event_t& event);
    /// A modifier state without what the keys mean that are down since the start.
    [[nodiscard]] quint16 _pressedSinceStart(quint16 state) const;
    void _modifierPressed(quint8 keyCode);
    void _keyReleased(quint8 keyCode, xcb_timestamp_t time);
    void _modifiersMayHaveChanged();
    void _yield();
    void _takeKeyboardBackIfUp();
    void _takeKeyboardBack();
    void _takePointerWhenFree();
    [[nodiscard]] bool _takePointer();
    [[nodiscard]] bool _anyShortcutModifierDown() const;
    [[nodiscard]] bool _takeKeyboardInFront(int attempts);
    void _focusMayBeLost();
    void _followButton();
    void _settleIfUp();
    [[nodiscard]] bool _isUp() const;

    X11Connection& _connection;
    xcb_window_t _keeper;
    quint16 _pointerDevice = 0;
    quint16 _modifiersAtStart = 0; ///< core modifier state
    X11ModifierMap _modifierMap;
    X11KeyboardGrab _keyboard;
    X11PointerGrab _pointer;
    X11FocusWatch _focusWatch;
    xcb_window_t _front = XCB_WINDOW_NONE; ///< the focus window's outermost ancestor
    X11HeldKeys _heldKeys;                 ///< down since the start

    QList<xcb_key_press_event_t> _typedAhead;
    int _onTheWay = 0; ///< keys that were sent to the keeper and have not come yet

    bool _begun = false;
    quint8 _inputOpcode = 0;
    std::set<quint32> _swallowedButtons;
    std::optional<X11RawInput::KeyWatch> _keyWatch;

    QTimer _buttonTimer;
    QPoint _pressedAt;
    bool _dragging = false;
    bool _startedByButton = false;
    QElapsedTimer _sinceStart;
    QDeadlineTimer _pointerDeadline;

    QTimer _takeBackTimer;
    QTimer _lookAtFocusTimer;
    QDeadlineTimer _takeBackDeadline;

    bool _settling = false;
    QDeadlineTimer _settleDeadline;
    QTimer _settleTimer;
};

} // namespace tarnwick
