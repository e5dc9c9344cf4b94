// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpFocus.h"

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr auto LookInterval = 20ms;

} // namespace

X11PopUpFocus::X11PopUpFocus(X11Connection& connection) : _connection(connection), _watch(connection)
{
    _lookAgain.setSingleShot(true);
    _lookAgain.setInterval(LookInterval);
    connect(&_lookAgain, &QTimer::timeout, this, &X11PopUpFocus::_look);
}

void X11PopUpFocus::start(xcb_window_t front, bool byButton)
{
    _front = front;
    _mayFollowPress.setRemainingTime(byButton ? FollowsPress : 0ms);
}

void X11PopUpFocus::settle()
{
    _lookAgain.stop();
}

void X11PopUpFocus::stop()
{
    _lookAgain.stop();
    _watch.stop();
}

bool X11PopUpFocus::isWhereItWas() const
{
    return outermostWindow(_connection, focusWindow(_connection)) == _front;
}

void X11PopUpFocus::see(const xcb_generic_event_t& event)
{
    if (_watch.tellsLoss(event))
        _look();
}

void X11PopUpFocus::_look()
{
    const xcb_window_t front = outermostWindow(_connection, focusWindow(_connection));
    const bool mayFollow = !_mayFollowPress.hasExpired();
    if (mayFollow && front == XCB_WINDOW_NONE) {
        _lookAgain.start(); // on its way from one window to another
        return;
    }
    if (front == XCB_WINDOW_NONE || (front != _front && !mayFollow)) {
        Q_EMIT lost();
        return;
    }
    _front = front;
    Q_EMIT moved();
}

} // namespace tarnwick

#include "moc_X11PopUpFocus.cpp"
