// SPDX-License-Identifier: MIT
#include "platform/linux/X11KeyboardHold.h"

#include "platform/linux/X11Connection.h"

namespace tarnwick {

namespace {

std::uint8_t grabOn(X11Connection& x11, xcb_window_t window)
{
    // "Owner events": keys go where they would go without the grab as long as that is a window of ours.
    const auto cookie =
        xcb_grab_keyboard(x11.get(), 1, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbOwned<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(x11.get(), cookie, nullptr));
    return reply ? reply->status : std::uint8_t(XCB_GRAB_STATUS_NOT_VIEWABLE);
}

} // namespace

std::unique_ptr<X11KeyboardHold> X11KeyboardHold::take()
{
    auto& x11 = X11Connection::shared();
    if (!x11)
        return nullptr;
    const XcbOwned<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(x11.get(), xcb_get_input_focus(x11.get()), nullptr));
    const bool window =
        focus && focus->focus != XCB_INPUT_FOCUS_NONE && focus->focus != XCB_INPUT_FOCUS_POINTER_ROOT;
    std::uint8_t status = window ? grabOn(x11, focus->focus) : std::uint8_t(XCB_GRAB_STATUS_NOT_VIEWABLE);
    if (status == XCB_GRAB_STATUS_NOT_VIEWABLE)
        status = grabOn(x11, x11.root());
    if (status != XCB_GRAB_STATUS_SUCCESS)
        return nullptr;
    return std::unique_ptr<X11KeyboardHold>(new X11KeyboardHold);
}

X11KeyboardHold::~X11KeyboardHold()
{
    auto& x11 = X11Connection::shared();
    xcb_ungrab_keyboard(x11.get(), XCB_CURRENT_TIME);
    x11.sync();
}

} // namespace tarnwick
