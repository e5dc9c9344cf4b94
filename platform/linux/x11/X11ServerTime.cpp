// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11ServerTime.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11EventFilter.h"

namespace tarnwick {

xcb_timestamp_t x11ServerTime()
{
    struct Disconnect
    {
        void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
    };
    const std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return XCB_CURRENT_TIME;
    // The server stamps the change of a property, even one that adds nothing.
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
    const xcb_window_t window = xcb_generate_id(connection.get());
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection.get(), 0, window, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    xcb_change_property(connection.get(), XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        0, nullptr);
    X11Connection(connection.get()).sync();
    while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(connection.get())})
        if (x11EventType(*event) == XCB_PROPERTY_NOTIFY)
            return x11EventAs<xcb_property_notify_event_t>(*event).time;
    return XCB_CURRENT_TIME;
}

} // namespace tarnwick
