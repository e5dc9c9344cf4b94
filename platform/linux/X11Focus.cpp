// SPDX-License-Identifier: MIT
#include "platform/linux/X11Focus.h"

#include "platform/linux/X11Connection.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr quint32 watchedEvents = XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
constexpr int deepestTree = 64;

XcbOwned<xcb_get_window_attributes_reply_t> attributesOf(X11Connection& connection, xcb_window_t window)
{
    return XcbOwned<xcb_get_window_attributes_reply_t>(xcb_get_window_attributes_reply(
        connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
}

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

xcb_window_t focusWindow(X11Connection& connection)
{
    const XcbOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr));
    if (!reply || reply->focus == XCB_INPUT_FOCUS_POINTER_ROOT)
        return XCB_WINDOW_NONE;
    return reply->focus;
}

xcb_window_t outermostWindow(X11Connection& connection, xcb_window_t window)
{
    for (int depth = 0; depth < deepestTree && window != XCB_WINDOW_NONE; ++depth) {
        const XcbOwned<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), window), nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE || tree->parent == tree->root)
            break;
        window = tree->parent;
    }
    return window;
}

void X11FocusWatch::start(xcb_window_t window)
{
    stop();
    if (window == XCB_WINDOW_NONE || window == _connection.root() || isToolkitWindow(window))
        return;
    const auto attributes = attributesOf(_connection, window);
    if (!attributes)
        return;
    _window = window;
    _addedMask = watchedEvents & ~attributes->your_event_mask;
    setEventMask(_connection, window, attributes->your_event_mask | watchedEvents);
}

void X11FocusWatch::stop()
{
    if (_window == XCB_WINDOW_NONE)
        return;
    if (const auto attributes = attributesOf(_connection, _window))
        setEventMask(_connection, _window, attributes->your_event_mask & ~_addedMask);
    _window = XCB_WINDOW_NONE;
}

bool X11FocusWatch::tellsLoss(const xcb_generic_event_t& event) const
{
    if (_window == XCB_WINDOW_NONE)
        return false;
    const void* anyEvent = &event;
    switch (event.response_type & ~0x80) {
    case XCB_FOCUS_OUT: {
        const auto* focus = static_cast<const xcb_focus_out_event_t*>(anyEvent);
        return focus->event == _window &&
               (focus->mode == XCB_NOTIFY_MODE_NORMAL || focus->mode == XCB_NOTIFY_MODE_WHILE_GRABBED);
    }
    case XCB_UNMAP_NOTIFY:
        return static_cast<const xcb_unmap_notify_event_t*>(anyEvent)->window == _window;
    case XCB_DESTROY_NOTIFY:
        return static_cast<const xcb_destroy_notify_event_t*>(anyEvent)->window == _window;
    default:
        return false;
    }
}

} // namespace tarnwick
