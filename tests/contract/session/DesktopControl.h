// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QPoint>

#include <array>

namespace tarnwick {

/// What a user and other programs do with windows. Every function returns when the server has it.
namespace desktop_control {

/// Asks the window manager to activate a window, as a task bar does.
inline void activate(xcb_window_t window)
{
    X11Connection& x11 = X11Connection::shared();
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x11.atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = 2;
    xcb_send_event(x11.get(), 0, x11.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    x11.sync();
}

inline void setText(X11Connection& x11, xcb_window_t window, const QByteArray& property,
                    const QByteArray& text)
{
    xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, window, x11.atom(property), XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(text.size()), text.constData());
    x11.sync();
}

inline void setNumber(X11Connection& x11, xcb_window_t window, const QByteArray& property,
                      std::uint32_t number)
{
    xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, window, x11.atom(property), XCB_ATOM_CARDINAL, 32,
                        1, &number);
    x11.sync();
}

/// A mapped top-level window of this process, of the given type ("DOCK").
inline xcb_window_t makeWindow(const QByteArray& type, bool overrideRedirect = false,
                               X11Connection& x11 = X11Connection::shared())
{
    const xcb_window_t window = xcb_generate_id(x11.get());
    const std::uint32_t redirect = overrideRedirect ? 1 : 0;
    xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, window, x11.root(), 600, 600, 100, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &redirect);
    if (!type.isEmpty()) {
        const xcb_atom_t atom = x11.atom("_NET_WM_WINDOW_TYPE_" + type);
        xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, window, x11.atom("_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &atom);
    }
    xcb_map_window(x11.get(), window);
    x11.sync();
    return window;
}

inline void focus(xcb_window_t window)
{
    X11Connection& x11 = X11Connection::shared();
    xcb_set_input_focus(x11.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    x11.sync();
}

/// To a pixel of the root.
inline void movePointer(QPoint pixel)
{
    X11Connection& x11 = X11Connection::shared();
    xcb_warp_pointer(x11.get(), XCB_WINDOW_NONE, x11.root(), 0, 0, 0, 0, static_cast<std::int16_t>(pixel.x()),
                     static_cast<std::int16_t>(pixel.y()));
    x11.sync();
}

inline void destroy(xcb_window_t window)
{
    X11Connection& x11 = X11Connection::shared();
    xcb_destroy_window(x11.get(), window);
    x11.sync();
}

/// Writes the root's property as a window manager does.
inline void tellActive(xcb_window_t window)
{
    X11Connection& x11 = X11Connection::shared();
    xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, x11.root(), x11.atom("_NET_ACTIVE_WINDOW"),
                        XCB_ATOM_WINDOW, 32, 1, &window);
    x11.sync();
}

} // namespace desktop_control

} // namespace tarnwick
