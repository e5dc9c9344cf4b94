// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <xcb/xcb.h>

#include <set>

namespace tarnwick {

class X11Connection;

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
    [[nodiscard]] xcb_grab_keyboard_cookie_t _requestOn(xcb_window_t window);
    [[nodiscard]] int _grabOn(xcb_window_t window);
    [[nodiscard]] bool _managedByBeliever();
    void _dropPassive();

    X11Connection& _connection;
    Mode _mode = Mode::None;
    xcb_window_t _window = XCB_WINDOW_NONE;
    xcb_window_t _yieldedWindow = XCB_WINDOW_NONE; ///< that keys come for while yielded
    std::set<xcb_window_t> _windows;
};

} // namespace tarnwick
