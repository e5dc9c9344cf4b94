// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11Focus.h"

#include "platform/linux/x11/X11EventFilter.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr quint32 WatchedEvents = XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr int DeepestTree = 64;

/// A window that has gone meanwhile is no error of ours.
void setEventMask(X11Connection& connection, xcb_window_t window, quint32 mask)
{
    const auto cookie =
        xcb_change_window_attributes_checked(connection.get(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_discard_reply(connection.get(), cookie.sequence);
}

} // namespace

bool isToolkitWindow(xcb_window_t window)
{
    const auto windows = QGuiApplication::allWindows();
    return std::any_of(windows.cbegin(), windows.cend(), [&](const QWindow* candidate) {
        return candidate->handle() && candidate->winId() == window;
    });
}

X11FocusQuestion::X11FocusQuestion(X11Connection& connection)
    : _answer(connection, xcb_get_input_focus(connection.get()))
{
}

xcb_window_t X11FocusQuestion::answer()
{
    const auto reply = _answer.take();
    if (!reply || reply->focus == XCB_INPUT_FOCUS_POINTER_ROOT)
        return XCB_WINDOW_NONE;
    return reply->focus;
}

xcb_window_t focusWindow(X11Connection& connection)
{
    return X11FocusQuestion(connection).answer();
}

X11OutermostQuestion::X11OutermostQuestion(X11Connection& connection, xcb_window_t window)
    : _connection(connection), _of(window), _outermost(window)
{
    if (window != XCB_WINDOW_NONE)
        _asked.emplace(connection, xcb_query_tree(connection.get(), window));
}

bool X11OutermostQuestion::advance()
{
    if (!_asked)
        return false;
    const auto tree = _asked->take();
    _asked.reset();
    if (!tree || tree->parent == XCB_WINDOW_NONE || tree->parent == tree->root || ++_depth >= DeepestTree)
        return false;
    _outermost = tree->parent;
    _asked.emplace(_connection, xcb_query_tree(_connection.get(), _outermost));
    return true;
}

xcb_window_t X11OutermostQuestion::answer()
{
    while (advance()) {
    }
    return _outermost;
}

xcb_window_t outermostWindow(X11Connection& connection, xcb_window_t window)
{
    return X11OutermostQuestion(connection, window).answer();
}

void X11FocusWatch::ask(xcb_window_t window)
{
    _askedWindow = window;
    _asked.emplace(_connection, xcb_get_window_attributes(_connection.get(), window));
}

void X11FocusWatch::start(xcb_window_t window)
{
    stop();
    if (window == XCB_WINDOW_NONE || window == _connection.root() || isToolkitWindow(window))
        return;
    if (!_asked || _askedWindow != window)
        ask(window);
    const auto attributes = _asked->take();
    _asked.reset();
    if (!attributes)
        return;
    _window = window;
    _addedMask = WatchedEvents & ~attributes->your_event_mask;
    setEventMask(_connection, window, attributes->your_event_mask | WatchedEvents);
}

void X11FocusWatch::stop()
{
    if (_window == XCB_WINDOW_NONE)
        return;
    const auto attributes =
        Attributes(_connection, xcb_get_window_attributes(_connection.get(), _window)).take();
    if (attributes)
        setEventMask(_connection, _window, attributes->your_event_mask & ~_addedMask);
    _window = XCB_WINDOW_NONE;
}

bool X11FocusWatch::tellsLoss(const xcb_generic_event_t& event) const
{
    if (_window == XCB_WINDOW_NONE)
        return false;
    switch (x11EventType(event)) {
    case XCB_FOCUS_OUT: {
        const auto& focus = x11EventAs<xcb_focus_out_event_t>(event);
        return focus.event == _window &&
               (focus.mode == XCB_NOTIFY_MODE_NORMAL || focus.mode == XCB_NOTIFY_MODE_WHILE_GRABBED);
    }
    case XCB_UNMAP_NOTIFY:
        return x11EventAs<xcb_unmap_notify_event_t>(event).window == _window;
    case XCB_DESTROY_NOTIFY:
        return x11EventAs<xcb_destroy_notify_event_t>(event).window == _window;
    default:
        return false;
    }
}

} // namespace tarnwick
