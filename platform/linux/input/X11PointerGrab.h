// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/XcbAnswer.h"

#include <xcb/xinput.h>

namespace tarnwick {

/// What the pointer is doing: X root pixels, and whether any button, of any number, is down.
struct X11PointerState
{
    quint16 device = 0; ///< XInput's number of it
    int x = 0;
    int y = 0;
    bool anyButtonDown = false;
    quint16 modifiers = 0; ///< core modifier state
};

/// What the pointer is doing. The constructor sends the question.
class X11PointerQuestion
{
public:
    explicit X11PointerQuestion(X11Connection& connection);

    /// All zero but the device when the server refuses. To be called once.
    [[nodiscard]] X11PointerState answer();

private:
    X11Connection& _connection;
    XcbAnswer<&xcb_input_xi_get_client_pointer_reply> _device;
    XcbAnswer<&xcb_input_xi_query_pointer_reply> _state; ///< of the device that it is nearly always
};

/// What the pointer is doing now: one round trip.
[[nodiscard]] X11PointerState pointerState(X11Connection& connection);

/// The pointer, taken so that its presses and motion go to one window of the toolkit, wherever they happen;
/// the toolkit hands them to the pop-up that is open. Released when destroyed. GUI thread only.
class X11PointerGrab
{
public:
    /// `window` must be viewable.
    X11PointerGrab(X11Connection& connection, xcb_window_t window) : _connection(connection), _window(window)
    {
    }
    ~X11PointerGrab() { release(); }
    X11PointerGrab(const X11PointerGrab&) = delete;
    X11PointerGrab& operator=(const X11PointerGrab&) = delete;

    /// False while another client has the pointer `device`, also by a button that is held down in its window.
    [[nodiscard]] bool take(quint16 device);
    void release();
    [[nodiscard]] bool held() const { return _device != NoDevice; }

private:
    static constexpr quint16 NoDevice = 0;
    X11Connection& _connection;
    xcb_window_t _window;
    quint16 _device = NoDevice;
};

} // namespace tarnwick
