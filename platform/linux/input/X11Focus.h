// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/XcbAnswer.h"

#include <optional>

namespace tarnwick {

/// Whether the toolkit of this program has made the window.
[[nodiscard]] bool isToolkitWindow(xcb_window_t window);

/// Which window has the input focus. The constructor sends the question.
class X11FocusQuestion
{
public:
    explicit X11FocusQuestion(X11Connection& connection);

    /// None when no window has it (also when the focus follows the pointer). To be called once.
    [[nodiscard]] xcb_window_t answer();

private:
    XcbAnswer<&xcb_get_input_focus_reply> _answer;
};

/// The window that has the input focus now: one round trip.
[[nodiscard]] xcb_window_t focusWindow(X11Connection& connection);

/// Which ancestor of a window is right below the root, the window manager's frame included. It takes a
/// question for each ancestor; the constructor sends the first.
class X11OutermostQuestion
{
public:
    X11OutermostQuestion(X11Connection& connection, xcb_window_t window);

    [[nodiscard]] xcb_window_t of() const { return _of; }
    /// Takes the answer in and sends the next question; false at the end. To be called when the answer is
    /// there, because a later one has been waited for, so that answer() waits less.
    bool advance();
    /// The window itself when it is gone.
    [[nodiscard]] xcb_window_t answer();

private:
    X11Connection& _connection;
    xcb_window_t _of;
    xcb_window_t _outermost;
    int _depth = 0;
    std::optional<XcbAnswer<&xcb_query_tree_reply>> _asked;
};

/// The same at once: a round trip a step.
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

    /// Asks beforehand what start() of this window is to know, so that it need not wait for it.
    void ask(xcb_window_t window);
    void start(xcb_window_t window);
    void stop();

    /// Whether the event says that the window may have lost the focus other than to a grab.
    [[nodiscard]] bool tellsLoss(const xcb_generic_event_t& event) const;

private:
    using Attributes = XcbAnswer<&xcb_get_window_attributes_reply>;

    X11Connection& _connection;
    xcb_window_t _askedWindow = XCB_WINDOW_NONE;
    std::optional<Attributes> _asked;
    xcb_window_t _window = XCB_WINDOW_NONE;
    quint32 _addedMask = 0;
};

} // namespace tarnwick
