// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11AllWorkspaces.h"

#include "platform/linux/x11/X11Connection.h"

#include <QEvent>
#include <QWidget>

namespace tarnwick {

namespace {

constexpr std::uint32_t AllWorkspaces = 0xFFFFFFFF;
constexpr std::uint32_t FromApplication = 1;

/// Of a window that is not shown yet. Some window managers (xfwm4) take "all workspaces" for the last one
/// unless the window is to stay where it is, too.
void makeSticky(X11Connection& x11, xcb_window_t window)
{
    const xcb_atom_t sticky = x11.atom("_NET_WM_STATE_STICKY");
    const auto states = x11.property32(window, "_NET_WM_STATE").value_or(QList<std::uint32_t>());
    if (!states.contains(sticky))
        xcb_change_property(x11.get(), XCB_PROP_MODE_APPEND, window, x11.atom("_NET_WM_STATE"), XCB_ATOM_ATOM,
                            32, 1, &sticky);
}

} // namespace

X11AllWorkspaces::X11AllWorkspaces(QWidget& window) : QObject(&window), _window(window)
{
    window.installEventFilter(this);
    _tell();
}

bool X11AllWorkspaces::eventFilter(QObject* receiver, QEvent* event)
{
    // It is mapped only after this, and told by the toolkit what state it is in.
    if (receiver == &_window && event->type() == QEvent::Show)
        _tell();
    return QObject::eventFilter(receiver, event);
}

void X11AllWorkspaces::_tell() const
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    const auto window = static_cast<xcb_window_t>(_window.winId());
    const xcb_atom_t desktop = x11.atom("_NET_WM_DESKTOP");
    xcb_change_property(x11.get(), XCB_PROP_MODE_REPLACE, window, desktop, XCB_ATOM_CARDINAL, 32, 1,
                        &AllWorkspaces);
    makeSticky(x11, window);

    // A window that is shown already is the window manager's to move.
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = desktop;
    message.data.data32[0] = AllWorkspaces;
    message.data.data32[1] = FromApplication;
    xcb_send_event(x11.get(), 0, x11.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(x11.get());
}

} // namespace tarnwick

#include "moc_X11AllWorkspaces.cpp"
