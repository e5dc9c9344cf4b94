// SPDX-License-Identifier: MIT
#include "platform/linux/X11PopUpInput.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11RawInput.h"

#include <QCoreApplication>

#include <chrono>
#include <thread>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr int attemptsForKey = 6;
constexpr int attemptsForButton = 1;
constexpr auto pauseBetweenAttempts = 5ms;
constexpr auto look = 20ms;
constexpr auto pointerPatience = 1000ms;
constexpr auto settlePatience = 600ms;
constexpr auto focusFollowsPress = 300ms;
constexpr int dragThreshold = 10; // X pixels

bool takeWithin(X11PointerGrab& pointer, int attempts)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (attempt > 0)
            std::this_thread::sleep_for(pauseBetweenAttempts);
        if (pointer.take())
            return true;
    }
    return false;
}

} // namespace

X11PopUpInput::X11PopUpInput(X11Connection& connection, xcb_window_t keeper)
    : _connection(connection), _keeper(keeper), _modifierMap(X11ModifierMap::read(connection)),
      _keyboard(connection), _pointer(connection, keeper), _focusWatch(connection)
{
    _buttonTimer.setInterval(look);
    connect(&_buttonTimer, &QTimer::timeout, this, &X11PopUpInput::_followButton);
    _settleTimer.setInterval(look);
    connect(&_settleTimer, &QTimer::timeout, this, &X11PopUpInput::_settleIfUp);
}

X11PopUpInput::~X11PopUpInput()
{
    if (_begun)
        static_cast<void>(end());
}

bool X11PopUpInput::begin()
{
    const X11PointerState pointer = pointerState(_connection);
    _startedByButton = pointer.anyButtonDown;
    // A button trigger over an application whose own menu is open: that menu has the keyboard and keeps it.
    if (!_keyboard.take(_startedByButton ? attemptsForButton : attemptsForKey))
        return false;
    if (!_startedByButton && !takeWithin(_pointer, attemptsForKey)) {
        _keyboard.release();
        _connection.sync();
        return false;
    }
    _front = outermostWindow(_connection, focusWindow(_connection));
    _focusWatch.start(_keyboard.window());
    _heldSinceStart = keysDown(_connection);
    for (std::size_t keyCode = 0; keyCode < _heldSinceStart.size(); ++keyCode)
        if (_heldSinceStart.test(keyCode))
            _modifiersHeldSinceStart |= _modifierMap.bitsOfKey(static_cast<quint8>(keyCode));
    _sinceStart.start();
    if (_startedByButton) {
        _pressedAt = QPoint(pointer.x, pointer.y);
        _pointerDeadline.setRemainingTime(pointerPatience);
        _buttonTimer.start();
    }

    auto& raw = X11RawInput::shared();
    connect(&raw, &X11RawInput::buttonPressed, this, [this] {
        if (!_pointer.held() && !_settling)
            Q_EMIT pressedElsewhere();
    });
    connect(&raw, &X11RawInput::buttonReleased, this, [this] {
        if (_buttonTimer.isActive())
            _followButton();
        if (_settling)
            _settleIfUp();
    });
    connect(&raw, &X11RawInput::keyReleased, this, [this] {
        Q_EMIT menuModifierFlagsMayHaveChanged();
        if (_keyboard.yielded() && !(pointerState(_connection).modifiers & _modifierMap.shortcutBits()))
            _takeKeyboardBack();
    });
    QCoreApplication::instance()->installNativeEventFilter(this);
    _begun = true;
    return true;
}

bool X11PopUpInput::settle()
{
    _settling = true;
    _buttonTimer.stop();
    _settleDeadline.setRemainingTime(settlePatience);
    _settleTimer.start();
    return _isUp();
}

bool X11PopUpInput::end()
{
    _begun = false;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    X11RawInput::shared().disconnect(this);
    X11RawInput::shared().setKeyReleasesWanted(false);
    _buttonTimer.stop();
    _settleTimer.stop();
    _focusWatch.stop();
    _pointer.release();
    _keyboard.release();
    _connection.sync();
    return outermostWindow(_connection, focusWindow(_connection)) == _front;
}

quint64 X11PopUpInput::menuModifierFlags() const
{
    return _modifierMap.menuModifierFlags(pointerState(_connection).modifiers);
}

bool X11PopUpInput::nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/)
{
    auto* event = static_cast<xcb_generic_event_t*>(message);
    const auto type = event->response_type & ~0x80;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
        return _filterKey(*static_cast<xcb_key_press_event_t*>(message), type == XCB_KEY_PRESS);
    if (_focusWatch.tellsLoss(*event))
        _focusMayBeLost();
    return false;
}

bool X11PopUpInput::_filterKey(xcb_key_press_event_t& event, bool press)
{
    if (event.event != _keyboard.window())
        return false;
    if (_modifierMap.isModifierKey(event.detail)) {
        _modifierKey(event.detail, press);
        return true;
    }
    if (_settling) {
        _settleIfUp();
        return true;
    }
    if (_heldSinceStart.test(event.detail)) {
        // A repeat is a release and a press.
        if (!press && !keysDown(_connection).test(event.detail))
            _heldSinceStart.reset(event.detail);
        return true;
    }
    event.state &= static_cast<quint16>(~_modifiersHeldSinceStart);
    event.event = _keeper;
    return false;
}

void X11PopUpInput::_modifierKey(quint8 keyCode, bool press)
{
    const quint16 bits = _modifierMap.bitsOfKey(keyCode);
    if (!press) {
        _heldSinceStart.reset(keyCode);
        _modifiersHeldSinceStart &= static_cast<quint16>(~bits);
    }
    if (_settling) {
        _settleIfUp();
        return;
    }
    if (press && _keyboard.yielded())
        _keyboard.letGoOfKey();
    else if (press && (bits & _modifierMap.shortcutBits()) && !_heldSinceStart.test(keyCode))
        _yield();
    Q_EMIT menuModifierFlagsMayHaveChanged();
}

void X11PopUpInput::_yield()
{
    _keyboard.yield();
    if (!_keyboard.yielded())
        return;
    X11RawInput::shared().setKeyReleasesWanted(true);
    // A window manager that answers its shortcut takes the pointer, too.
    _pointer.release();
}

void X11PopUpInput::_takeKeyboardBack()
{
    X11RawInput::shared().setKeyReleasesWanted(false);
    if (outermostWindow(_connection, focusWindow(_connection)) != _front || !_keyboard.take(attemptsForKey)) {
        Q_EMIT lost();
        return;
    }
    _focusWatch.start(_keyboard.window());
    if (!_buttonTimer.isActive() && !_pointer.take()) {
        _pointerDeadline.setRemainingTime(pointerPatience);
        _buttonTimer.start();
    }
}

void X11PopUpInput::_focusMayBeLost()
{
    const xcb_window_t front = outermostWindow(_connection, focusWindow(_connection));
    const bool followsPress = _startedByButton && !_sinceStart.hasExpired(focusFollowsPress.count());
    if (front == XCB_WINDOW_NONE || (front != _front && !followsPress)) {
        Q_EMIT lost();
        return;
    }
    _front = front;
    if (_keyboard.yielded())
        return;
    if (!_keyboard.take(attemptsForKey)) {
        Q_EMIT lost();
        return;
    }
    _focusWatch.start(_keyboard.window());
}

void X11PopUpInput::_followButton()
{
    const X11PointerState pointer = pointerState(_connection);
    if (pointer.anyButtonDown) {
        _pointerDeadline.setRemainingTime(pointerPatience);
        _dragging =
            _dragging || (QPoint(pointer.x, pointer.y) - _pressedAt).manhattanLength() > dragThreshold;
        if (_dragging)
            Q_EMIT dragged();
        return;
    }
    if (_dragging) {
        _dragging = false;
        Q_EMIT dragReleased();
    }
    if (_keyboard.yielded() || _pointer.take())
        _buttonTimer.stop();
    else if (_pointerDeadline.hasExpired())
        Q_EMIT lost();
}

void X11PopUpInput::_settleIfUp()
{
    if (_isUp())
        Q_EMIT settled();
}

bool X11PopUpInput::_isUp() const
{
    return _settleDeadline.hasExpired() ||
           (keysDown(_connection).none() && !pointerState(_connection).anyButtonDown);
}

} // namespace tarnwick
