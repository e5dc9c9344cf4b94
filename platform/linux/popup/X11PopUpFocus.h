// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11Focus.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace tarnwick {

/// Whether the application that a pop-up was opened for is still in front. The window manager may give the
/// focus to the window below a press a moment after the press, which opens the pop-up, too: the pop-up is for
/// that window then. Signals come from inside the native event filter or a timer. GUI thread only.
class X11PopUpFocus : public QObject
{
    Q_OBJECT

public:
    /// For so long after a press the focus may follow it.
    static constexpr std::chrono::milliseconds FollowsPress{500};

    explicit X11PopUpFocus(X11Connection& connection);

    /// Asks beforehand what watch() of this window is to know, so that it need not wait for it.
    void ask(xcb_window_t window) { _watch.ask(window); }
    /// Watches the window that keys arrive for.
    void watch(xcb_window_t window) { _watch.start(window); }
    /// `front`: the outermost ancestor of the window with the focus.
    void start(xcb_window_t front, bool byButton);
    /// Looks no longer for a focus that is on its way.
    void settle();
    void stop();

    /// Whether the focus is where it was, now: a round trip for each ancestor of the focus window.
    [[nodiscard]] bool isWhereItWas() const;

    /// For each event of the X server.
    void see(const xcb_generic_event_t& event);

Q_SIGNALS:
    /// The focus has gone to another application, or to nobody.
    void lost();
    /// It went, but to a window that the pop-up may stay open for: keys arrive for that one from now on.
    void moved();

private:
    void _look();

    X11Connection& _connection;
    X11FocusWatch _watch;
    xcb_window_t _front = XCB_WINDOW_NONE;
    QDeadlineTimer _mayFollowPress;
    QTimer _lookAgain;
};

} // namespace tarnwick
