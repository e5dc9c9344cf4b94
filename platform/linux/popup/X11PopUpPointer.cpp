// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpPointer.h"

#include "platform/linux/input/X11RawInput.h"
#include "platform/linux/x11/X11EventFilter.h"

#include <QWidget>
#include <xcb/xinput.h>

#include <chrono>
#include <thread>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr int AttemptsForKey = 6;
constexpr auto PauseBetweenAttempts = 5ms;
constexpr auto LookInterval = 20ms;
constexpr auto Patience = 1000ms;

bool takeWithin(X11PointerGrab& grab, quint16 device, int attempts)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (attempt > 0)
            std::this_thread::sleep_for(PauseBetweenAttempts);
        if (grab.take(device))
            return true;
    }
    return false;
}

} // namespace

X11PopUpPointer::X11PopUpPointer(X11Connection& connection, xcb_window_t keeper)
    : _connection(connection), _keeper(keeper), _grab(connection, keeper)
{
    if (const auto* extension = xcb_get_extension_data(connection.get(), &xcb_input_id))
        _inputOpcode = extension->major_opcode;
    _lookTimer.setInterval(LookInterval);
    connect(&_lookTimer, &QTimer::timeout, this, &X11PopUpPointer::_look);
    auto& raw = X11RawInput::shared();
    connect(&raw, &X11RawInput::buttonPressed, this, &X11PopUpPointer::_buttonPressed);
    connect(&raw, &X11RawInput::buttonReleased, this, [this] {
        if (_lookTimer.isActive())
            _look();
    });
}

bool X11PopUpPointer::take(quint16 device)
{
    _device = device;
    if (!takeWithin(_grab, device, AttemptsForKey))
        return false;
    _enter(State::Held);
    return true;
}

void X11PopUpPointer::follow(const X11PointerState& pointer)
{
    _device = pointer.device;
    _drag.start(QPoint(pointer.x, pointer.y));
    // After a quick click it may be free already.
    if (!pointer.anyButtonDown && _grab.take(_device))
        _enter(State::Held);
    else
        _await();
}

void X11PopUpPointer::yield()
{
    _grab.release();
    if (_state == State::Held)
        _enter(State::Others);
    else if (_state == State::Awaited)
        _enter(State::Followed);
}

void X11PopUpPointer::takeBack()
{
    if (_state == State::Followed) {
        _enter(State::Awaited);
    } else if (_state == State::Others) {
        if (_grab.take(_device)) {
            _enter(State::Held);
            Q_EMIT taken();
        } else {
            _await();
        }
    }
}

void X11PopUpPointer::settle()
{
    X11RawInput::shared().disconnect(this);
    if (_state != State::Held)
        _enter(State::Others);
}

void X11PopUpPointer::release()
{
    X11RawInput::shared().disconnect(this);
    _grab.release();
    _enter(State::Others);
}

bool X11PopUpPointer::swallows(const xcb_generic_event_t& event)
{
    if (!isOfX11Extension(event, _inputOpcode))
        return false;
    return _isCrossingByGrab(x11EventAs<xcb_input_enter_event_t>(event)) ||
           _isClickIntoOwnWindow(x11EventAs<xcb_input_button_press_event_t>(event));
}

void X11PopUpPointer::_await()
{
    _deadline.setRemainingTime(Patience);
    _enter(State::Awaited);
}

void X11PopUpPointer::_look()
{
    const X11PointerState pointer = pointerState(_connection);
    _tellDrag(_drag.follow(QPoint(pointer.x, pointer.y), pointer.anyButtonDown));
    if (pointer.anyButtonDown) {
        _deadline.setRemainingTime(Patience);
    } else if (_state == State::Followed) {
        _enter(State::Others);
    } else if (_grab.take(_device)) {
        _enter(State::Held);
        Q_EMIT taken();
    } else if (_deadline.hasExpired()) {
        Q_EMIT lost();
    }
}

void X11PopUpPointer::_buttonPressed()
{
    if (!held())
        Q_EMIT pressedElsewhere();
}

void X11PopUpPointer::_enter(State state)
{
    _state = state;
    if (state == State::Held || state == State::Others)
        _lookTimer.stop();
    else if (!_lookTimer.isActive())
        _lookTimer.start();
}

void X11PopUpPointer::_tellDrag(PointerDrag::Step step)
{
    if (step == PointerDrag::Step::Moved)
        Q_EMIT dragged();
    else if (step == PointerDrag::Step::Released)
        Q_EMIT dragReleased();
}

bool X11PopUpPointer::_isCrossingByGrab(const xcb_input_enter_event_t& event)
{
    const bool crossing = event.event_type == XCB_INPUT_ENTER || event.event_type == XCB_INPUT_LEAVE;
    return crossing && event.mode != XCB_INPUT_NOTIFY_MODE_NORMAL;
}

bool X11PopUpPointer::_isClickIntoOwnWindow(const xcb_input_button_press_event_t& event)
{
    if (event.event_type == XCB_INPUT_BUTTON_RELEASE)
        return _swallowedButtons.erase(event.detail) > 0;
    if (event.event_type != XCB_INPUT_BUTTON_PRESS || event.event == _keeper)
        return false;
    const QWidget* window = QWidget::find(event.event);
    if (!window || window->windowType() == Qt::Popup)
        return false;
    _swallowedButtons.insert(event.detail);
    return true;
}

} // namespace tarnwick

#include "moc_X11PopUpPointer.cpp"
