// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11KeyboardGrab.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"

#include <chrono>
#include <thread>

namespace tarnwick {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto PauseBetweenAttempts = 5ms;
constexpr int WindowIsGone = -1;

/// On the focus window itself, the server tells the end of a grab as a loss of the focus and its return. KWin
/// believes the first and not the second, and the window is not in front any more. Told from a window further
/// out it is harmless there; but applications then see a loss of the focus, which they don't otherwise.
bool believesLossOfFocus(const QString& windowManager)
{
    return windowManager == u"KWin"_s;
}

xcb_grab_keyboard_cookie_t requestGrab(X11Connection& connection, xcb_window_t window)
{
    return xcb_grab_keyboard(connection.get(), 0, window, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                             XCB_GRAB_MODE_ASYNC);
}

/// The server knows one keyboard grab for the whole connection: the last one that was taken.
X11KeyboardGrab* lastTaken = nullptr;

xcb_window_t standIn = XCB_WINDOW_NONE;

} // namespace

X11KeyboardStandIn::X11KeyboardStandIn(xcb_window_t window)
{
    standIn = window;
}

X11KeyboardStandIn::~X11KeyboardStandIn()
{
    standIn = XCB_WINDOW_NONE;
}

int grabKeyboard(X11Connection& connection, xcb_window_t window)
{
    xcb_generic_error_t* error = nullptr;
    const XcbOwned<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection.get(), requestGrab(connection, window), &error));
    const XcbOwned<xcb_generic_error_t> ownedError(error);
    return reply ? reply->status : WindowIsGone;
}

bool endOfGrabIsMisread(X11Connection& connection)
{
    return believesLossOfFocus(X11Windows(connection).managerName());
}

void letKeyboardGo(X11Connection& connection, bool byWayOfTheRoot)
{
    if (byWayOfTheRoot) {
        const auto cookie = requestGrab(connection, connection.root());
        xcb_discard_reply(connection.get(), cookie.sequence);
    }
    xcb_ungrab_keyboard(connection.get(), XCB_CURRENT_TIME);
    xcb_flush(connection.get());
}

bool X11KeyboardGrab::take(int attempts)
{
    return take(attempts, focusWindow(_connection));
}

bool X11KeyboardGrab::take(int attempts, xcb_window_t focus)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (attempt > 0) {
            std::this_thread::sleep_for(PauseBetweenAttempts);
            focus = focusWindow(_connection);
        }
        xcb_window_t window = focus == XCB_WINDOW_NONE ? _connection.root() : focus;
        if (standIn != XCB_WINDOW_NONE)
            window = standIn;
        int status = grabKeyboard(_connection, window);
        if (status == XCB_GRAB_STATUS_NOT_VIEWABLE) {
            window = _connection.root();
            status = grabKeyboard(_connection, window);
        }
        if (status != XCB_GRAB_STATUS_SUCCESS)
            continue;
        _dropPassive();
        _window = window;
        _windows.insert(window);
        _mode = Mode::Taken;
        lastTaken = this;
        return true;
    }
    return false;
}

void X11KeyboardGrab::yield()
{
    if (_mode != Mode::Taken || _window == _connection.root() || _window == standIn)
        return;
    // A key may be up again before anybody hears of it: the server begins and ends its grab by itself.
    const xcb_window_t window =
        endOfGrabIsMisread(_connection) ? outermostWindow(_connection, _window) : _window;
    const auto cookie = xcb_grab_key_checked(_connection.get(), 0, window, XCB_MOD_MASK_ANY, XCB_GRAB_ANY,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    // Somebody has a key of this window to himself: stay as it is.
    if (const XcbOwned<xcb_generic_error_t> error(xcb_request_check(_connection.get(), cookie)); error)
        return;
    _yieldedWindow = window;
    _windows.insert(window);
    _mode = Mode::Yielded;
    letGoOfKey();
}

void X11KeyboardGrab::letGoOfKey()
{
    letKeyboardGo(_connection, endOfGrabIsMisread(_connection));
}

void X11KeyboardGrab::release()
{
    if (_mode == Mode::None)
        return;
    _dropPassive();
    // It may have ended with its window, and the keyboard be another's since.
    if (lastTaken == this) {
        letGoOfKey();
        lastTaken = nullptr;
    }
    _mode = Mode::None;
    _windows.clear();
}

void X11KeyboardGrab::_dropPassive()
{
    if (_mode != Mode::Yielded)
        return;
    const auto cookie =
        xcb_ungrab_key_checked(_connection.get(), XCB_GRAB_ANY, _yieldedWindow, XCB_MOD_MASK_ANY);
    xcb_discard_reply(_connection.get(), cookie.sequence);
}

} // namespace tarnwick
