// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>
#include <xcb/xcb.h>

namespace tarnwick {

class X11Connection;

/// Whether the toolkit of this program has made the window.
[[nodiscard]] bool isToolkitWindow(xcb_window_t window);

/// The window that has the input focus; none when no window has it (also when the focus follows the
/// pointer).
[[nodiscard]] xcb_window_t focusWindow(X11Connection& connection);

/// The ancestor of `window` right below the root, the window manager's frame included; `window` itself when
/// it is gone.
[[nodiscard]] xcb_window_t outermostWindow(X11Connection& connection, xcb_window_t window);

/// Watches one window for the loss of the focus and for its end, adding to what else this connection wants
/// to know of it. The root and the toolkit's own windows are not watched: their event masks are not ours.
class X11FocusWatch
{
public:
    explicit X11FocusWatch(X11Connection& connection) : _connection(connection) {}
    ~X11FocusWatch() { stop(); }
    X11FocusWatch(const X11FocusWatch&) = delete;
    X11FocusWatch& operator=(const X11FocusWatch&) = delete;

    void start(xcb_window_t window);
    void stop();

    /// Whether the event says that the window may have lost the focus other than to a grab.
    [[nodiscard]] bool tellsLoss(const xcb_generic_event_t& event) const;

private:
    X11Connection& _connection;
    xcb_window_t _window = XCB_WINDOW_NONE;
    quint32 _addedMask = 0;
};

} // namespace tarnwick
