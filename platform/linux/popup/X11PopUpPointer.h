// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11PointerGrab.h"
#include "platform/qt/menu/PointerDrag.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <set>

namespace tarnwick {

/// The pointer for one showing of a pop-up. A button that is down keeps it from us; it is followed until it
/// is up. Signals come from inside the native event filter or a timer. GUI thread only.
class X11PopUpPointer : public QObject
{
    Q_OBJECT

public:
    /// `keeper`: a viewable window of the toolkit that pointer events are handed to.
    X11PopUpPointer(X11Connection& connection, xcb_window_t keeper);

    /// The pop-up opens by a key: the pointer is to be ours at once. False when another client keeps it.
    [[nodiscard]] bool take(quint16 device);
    /// It opens by a button, which may be down still.
    void follow(const X11PointerState& pointer);
    /// Shortcuts of the window manager go first, which takes the pointer for them, too.
    void yield();
    /// They do no longer.
    void takeBack();
    /// The menu has closed: what is not ours by now stays others', and nothing is signalled any more.
    void settle();
    void release();

    /// Whether it is ours now.
    [[nodiscard]] bool held() const { return _state == State::Held; }

    /// Whether the toolkit is not to see the event.
    [[nodiscard]] bool swallows(const xcb_generic_event_t& event);

Q_SIGNALS:
    /// It is ours, which it was not before.
    void taken();
    /// It can't be had: another client has kept it for 1 s although no button is down.
    void lost();
    /// A button was pressed while the pointer isn't ours; the place is where the pointer is now.
    void pressedElsewhere();
    /// The button that was down at the start is being dragged, or has been released after that.
    void dragged();
    void dragReleased();

private:
    /// What each does: a row a state, with the state that follows.
    ///
    ///           | looked at: a button down | looked at: none down        | yield()    | takeBack()
    /// Others    | (is not looked at)       | (is not looked at)          | Others     | Held or Awaited
    /// Held      | (is not looked at)       | (is not looked at)          | Others     | Held
    /// Awaited   | Awaited                  | Held, or Awaited up to 1 s  | Followed   | Awaited
    /// Followed  | Followed                 | Others                      | Followed   | Awaited
    enum class State {
        Others,   ///< not ours, and not wanted
        Held,     ///< ours
        Awaited,  ///< a button or another client has it; it is to be ours as soon as that ends
        Followed, ///< a button has it, whose release the menu still wants to know
    };

    void _await();
    void _look();
    void _buttonPressed();
    void _enter(State state);
    void _tellDrag(PointerDrag::Step step);
    /// The pointer seems to leave and enter windows as it is grabbed and given back; no menu is to notice.
    [[nodiscard]] static bool _isCrossingByGrab(const xcb_input_enter_event_t& event);
    /// The click that opens the menu over a window of our own may come after the menu is there: the toolkit
    /// would give it to the menu, which would close.
    [[nodiscard]] bool _isClickIntoOwnWindow(const xcb_input_button_press_event_t& event);

    X11Connection& _connection;
    xcb_window_t _keeper;
    quint8 _inputOpcode = 0;
    State _state = State::Others;
    quint16 _device = 0;
    X11PointerGrab _grab;
    PointerDrag _drag;
    QTimer _lookTimer;        ///< runs while it is looked at
    QDeadlineTimer _deadline; ///< for being had, once no button is down
    std::set<quint32> _swallowedButtons;
};

} // namespace tarnwick
