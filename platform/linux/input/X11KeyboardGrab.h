// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <xcb/xcb.h>

#include <set>

namespace tarnwick {

class X11Connection;

/// Asks for all keys on the window; gives the server's status, or -1 when the window is gone. Any thread.
[[nodiscard]] int grabKeyboard(X11Connection& connection, xcb_window_t window);

/// Whether a window manager would take the end of a grab on a focus window for a loss of the focus. Asks on
/// this connection: three round trips.
[[nodiscard]] bool endOfGrabIsMisread(X11Connection& connection);

/// Ends the connection's keyboard grab. `byWayOfTheRoot`, nobody misreads that. Any thread.
void letKeyboardGo(X11Connection& connection, bool byWayOfTheRoot);

/// While it lives, keyboards are taken on this window and on no other, and are not yielded: for a window of
/// Wayland in front, to which no key comes on the X server. XWayland asks its compositor for the keys on
/// behalf of such a window of ours, and gets them where the user allows that. One at a time; GUI thread only.
class X11KeyboardStandIn
{
public:
    explicit X11KeyboardStandIn(xcb_window_t window);
    ~X11KeyboardStandIn();
    X11KeyboardStandIn(const X11KeyboardStandIn&) = delete;
    X11KeyboardStandIn& operator=(const X11KeyboardStandIn&) = delete;
};

/// The keyboard, taken in a way that the application with the focus doesn't notice: grabbed on its own focus
/// window, since the server tells a grab as a move of the focus to the grab's window. Taking the keyboard
/// with another object takes it from this one, whose release then does nothing. Released when destroyed. GUI
/// thread only.
class X11KeyboardGrab
{
public:
    explicit X11KeyboardGrab(X11Connection& connection) : _connection(connection) {}
    ~X11KeyboardGrab() { release(); }
    X11KeyboardGrab(const X11KeyboardGrab&) = delete;
    X11KeyboardGrab& operator=(const X11KeyboardGrab&) = delete;

    /// Takes all keys. Tries up to `attempts` times, 5 ms apart, while another client has the keyboard. False
    /// when it still does; what was held before stays.
    [[nodiscard]] bool take(int attempts);
    /// The same when it is known which window had the focus a moment ago.
    [[nodiscard]] bool take(int attempts, xcb_window_t focus);

    /// Gives the keyboard back but goes on getting each key that nobody else wants: passive grabs on the root
    /// window, such as the window manager's shortcuts, win meanwhile.
    void yield();
    [[nodiscard]] bool yielded() const { return _mode == Mode::Yielded; }
    /// Keys may still come for this window, since the keyboard was taken on it for this connection before.
    void expectKeysFor(xcb_window_t window) { _windows.insert(window); }

    /// While yielded: lets go of the key that is down, so that it hides no shortcut.
    void letGoOfKey();

    void release();

    /// The window that key events arrive for: the focus window, or the root where there is none.
    [[nodiscard]] xcb_window_t window() const { return _window; }
    /// Whether key events for this window are ours: they came for it at some time since nothing was held.
    /// The last keys for the window before may come after the keyboard was taken on another.
    [[nodiscard]] bool hasBeenOn(xcb_window_t window) const { return _windows.count(window) > 0; }

private:
    enum class Mode { None, Taken, Yielded };
    void _dropPassive();

    X11Connection& _connection;
    Mode _mode = Mode::None;
    xcb_window_t _window = XCB_WINDOW_NONE;
    xcb_window_t _yieldedWindow = XCB_WINDOW_NONE; ///< that keys come for while yielded
    std::set<xcb_window_t> _windows;
};

} // namespace tarnwick
