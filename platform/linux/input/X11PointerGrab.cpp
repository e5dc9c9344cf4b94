// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11PointerGrab.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr quint16 CorePointer = 2; // the virtual core pointer

auto askState(X11Connection& connection, quint16 device)
{
    return xcb_input_xi_query_pointer(connection.get(), connection.root(), device);
}

} // namespace

X11PointerQuestion::X11PointerQuestion(X11Connection& connection)
    : _connection(connection),
      _device(connection, xcb_input_xi_get_client_pointer(connection.get(), XCB_WINDOW_NONE)),
      _state(connection, askState(connection, CorePointer))
{
}

X11PointerState X11PointerQuestion::answer()
{
    const auto told = _device.take();
    X11PointerState state;
    state.device = told && told->set ? told->deviceid : CorePointer;
    auto reply = _state.take();
    if (state.device != CorePointer)
        reply.reset(xcb_input_xi_query_pointer_reply(_connection.get(), askState(_connection, state.device),
                                                     nullptr));
    if (!reply)
        return state;
    state.x = reply->root_x >> 16;
    state.y = reply->root_y >> 16;
    // Some servers leave the effective ones out.
    state.modifiers = static_cast<quint16>(reply->mods.base | reply->mods.latched | reply->mods.locked);
    const auto* words = xcb_input_xi_query_pointer_buttons(reply.get());
    state.anyButtonDown = std::any_of(words, words + reply->buttons_len, [](auto word) { return word != 0; });
    return state;
}

X11PointerState pointerState(X11Connection& connection)
{
    return X11PointerQuestion(connection).answer();
}

bool X11PointerGrab::take(quint16 device)
{
    const quint32 events = XCB_INPUT_XI_EVENT_MASK_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_BUTTON_RELEASE |
                           XCB_INPUT_XI_EVENT_MASK_MOTION | XCB_INPUT_XI_EVENT_MASK_ENTER |
                           XCB_INPUT_XI_EVENT_MASK_LEAVE;
    const auto cookie =
        xcb_input_xi_grab_device(_connection.get(), _window, XCB_CURRENT_TIME, XCB_CURSOR_NONE, device,
                                 XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC, 0, 1, &events);
    xcb_generic_error_t* error = nullptr;
    const XcbOwned<xcb_input_xi_grab_device_reply_t> reply(
        xcb_input_xi_grab_device_reply(_connection.get(), cookie, &error));
    const XcbOwned<xcb_generic_error_t> ownedError(error);
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return false;
    _device = device;
    return true;
}

void X11PointerGrab::release()
{
    if (!held())
        return;
    xcb_input_xi_ungrab_device(_connection.get(), XCB_CURRENT_TIME, _device);
    xcb_flush(_connection.get());
    _device = NoDevice;
}

} // namespace tarnwick
