// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11SelectionOwner.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/xfixes.h>

namespace tarnwick {

X11SelectionOwner::X11SelectionOwner(const QByteArray& selection)
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return;
    _selection = x11.atom(selection);
    _watch();
}

xcb_window_t X11SelectionOwner::window() const
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return XCB_WINDOW_NONE;
    const XcbOwned<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(x11.get(), xcb_get_selection_owner(x11.get(), _selection), nullptr));
    return answer ? answer->owner : xcb_window_t(XCB_WINDOW_NONE);
}

void X11SelectionOwner::_watch()
{
    auto& x11 = X11Connection::shared();
    const auto* extension = xcb_get_extension_data(x11.get(), &xcb_xfixes_id);
    if (!extension || !extension->present)
        return;
    const XcbOwned<xcb_xfixes_query_version_reply_t> version(xcb_xfixes_query_version_reply(
        x11.get(), xcb_xfixes_query_version(x11.get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
        nullptr));
    if (!version)
        return;
    xcb_xfixes_select_selection_input(x11.get(), x11.root(), _selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    _changeEvent = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    install();
}

bool X11SelectionOwner::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type != _changeEvent)
        return false;
    if (x11EventAs<xcb_xfixes_selection_notify_event_t>(event).selection == _selection)
        QMetaObject::invokeMethod(this, &X11SelectionOwner::changed, Qt::QueuedConnection);
    return false;
}

} // namespace tarnwick

#include "moc_X11SelectionOwner.cpp"
