// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpInput.h"

#include "platform/linux/input/KeyCodes.h"
#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <QWidget>
#include <xcb/xinput.h>

#include <chrono>
#include <thread>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr int attemptsForKey = 6;
constexpr int attemptsForButton = 1;
constexpr auto pauseBetweenAttempts = 5ms;
constexpr auto look = 20ms;
constexpr auto pointerPatience = 1000ms;
constexpr auto settlePatience = 600ms;
constexpr auto focusFollowsPress = 500ms;
/// A window manager grabs keyboard and pointer for its shortcut a moment after the key.
constexpr auto shortcutTakesEffect = 50ms;
constexpr auto takeBackPatience = 600ms;
constexpr int dragThreshold = 10; // X pixels

bool takeWithin(X11PointerGrab& pointer, quint16 device, int attempts)
{
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (attempt > 0)
            std::this_thread::sleep_for(pauseBetweenAttempts);
        if (pointer.take(device))
            return true;
    }
    return false;
}

} // namespace

X11PopUpInput::X11PopUpInput(X11Connection& connection, xcb_window_t keeper)
    : _connection(connection), _keeper(keeper), _keyboard(connection), _pointer(connection, keeper),
      _focusWatch(connection)
{
    _buttonTimer.setInterval(look);
    connect(&_buttonTimer, &QTimer::timeout, this, &X11PopUpInput::_followButton);
    _takeBackTimer.setSingleShot(true);
    connect(&_takeBackTimer, &QTimer::timeout, this, &X11PopUpInput::_takeKeyboardBack);
    _lookAtFocusTimer.setSingleShot(true);
    connect(&_lookAtFocusTimer, &QTimer::timeout, this, &X11PopUpInput::_focusMayBeLost);
    _settleTimer.setInterval(look);
    connect(&_settleTimer, &QTimer::timeout, this, &X11PopUpInput::_settleIfUp);
    if (const auto* extension = xcb_get_extension_data(connection.get(), &xcb_input_id))
        _inputOpcode = extension->major_opcode;
}

X11PopUpInput::~X11PopUpInput()
{
    if (_begun)
        static_cast<void>(end());
}

bool X11PopUpInput::begin()
{
    // What does not need another answer is asked together: somebody waits for the menu.
    X11PointerQuestion pointerAsked(_connection);
    X11FocusQuestion focusAsked(_connection);
    X11ModifierMap::Question modifierMapAsked(_connection);
    const X11PointerState pointer = pointerAsked.answer();
    X11OutermostQuestion frontAsked(_connection, focusAsked.answer());
    _modifierMap = modifierMapAsked.answer();
    _pointerDevice = pointer.device;
    // A quick click is over by now, and the window manager may still be about to answer it.
    _startedByButton = pointer.anyButtonDown || X11RawInput::shared().pressedWithin(focusFollowsPress);
    // A button trigger over an application whose own menu is open: that menu has the keyboard and keeps it.
    if (!_keyboard.take(_startedByButton ? attemptsForButton : attemptsForKey, frontAsked.of()))
        return false;
    auto ahead = X11HotKeyGuard::shared().handOver();
    frontAsked.advance();
    _keyWatch.emplace();
    X11KeysQuestion keysAsked(_connection);
    X11PointerQuestion modifiersAsked(_connection);
    X11FocusQuestion focusAskedAgain(_connection);
    _focusWatch.ask(_keyboard.window());
    if (!_startedByButton && !takeWithin(_pointer, _pointerDevice, attemptsForKey)) {
        _keyboard.release();
        _connection.sync();
        X11HotKeyGuard::shared().handBack();
        return false;
    }
    _hold(ahead ? ahead->down : keysAsked.answer());
    if (ahead) {
        for (const xcb_window_t window : std::as_const(ahead->windows))
            _keyboard.expectKeysFor(window);
        _typedAhead = std::move(ahead->keys);
    }
    _modifiersAtStart = modifiersAsked.answer().modifiers;
    frontAsked.advance();
    const xcb_window_t focus = focusAskedAgain.answer();
    _focusWatch.start(_keyboard.window());
    _front = focus == frontAsked.of() ? frontAsked.answer() : outermostWindow(_connection, focus);
    _sinceStart.start();
    if (_startedByButton)
        _awaitPointer(pointer);
    _followRawInput();
    QCoreApplication::instance()->installNativeEventFilter(this);
    _begun = true;
    return true;
}

void X11PopUpInput::_awaitPointer(const X11PointerState& pointer)
{
    _pressedAt = QPoint(pointer.x, pointer.y);
    _pointerDeadline.setRemainingTime(pointerPatience);
    // After a quick click it may be free already.
    if (pointer.anyButtonDown || !_pointer.take(_pointerDevice))
        _buttonTimer.start();
}

void X11PopUpInput::_followRawInput()
{
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
    connect(&raw, &X11RawInput::keyReleased, this, [this](quint32 keyCode) {
        _heldKeys.up(static_cast<quint8>(keyCode));
        _modifiersMayHaveChanged();
    });
}

void X11PopUpInput::_hold(const X11Keys& down)
{
    for (int keyCode = 0; keyCode <= maximumX11KeyCode; ++keyCode) {
        const auto key = static_cast<quint8>(keyCode);
        if (down.test(key))
            _heldKeys.hold(key);
    }
}

quint16 X11PopUpInput::_pressedSinceStart(quint16 state) const
{
    const quint16 counted = _modifierMap.shortcutBits() | X11ModifierMap::shiftBit;
    const auto held = _heldKeys.keys();
    for (const quint8 keyCode : held)
        state &= static_cast<quint16>(~(_modifierMap.bitsOfKey(keyCode) & counted));
    return state;
}

bool X11PopUpInput::settle()
{
    _settling = true;
    _buttonTimer.stop();
    _takeBackTimer.stop();
    _lookAtFocusTimer.stop();
    _settleDeadline.setRemainingTime(settlePatience);
    _settleTimer.start();
    return _isUp();
}

bool X11PopUpInput::end()
{
    _begun = false;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    X11RawInput::shared().disconnect(this);
    _keyWatch.reset();
    for (QTimer* timer : {&_buttonTimer, &_takeBackTimer, &_lookAtFocusTimer, &_settleTimer})
        timer->stop();
    _focusWatch.stop();
    _pointer.release();
    _keyboard.release();
    _connection.sync();
    X11HotKeyGuard::shared().handBack();
    return outermostWindow(_connection, focusWindow(_connection)) == _front;
}

void X11PopUpInput::typeAhead()
{
    for (xcb_key_press_event_t key : std::exchange(_typedAhead, {})) {
        if (!_filterKey(key, (key.response_type & ~0x80) == XCB_KEY_PRESS))
            _sendToKeeper(key);
    }
}

/// By way of the server, which gives it to the toolkit as any key.
void X11PopUpInput::_sendToKeeper(const xcb_key_press_event_t& event)
{
    xcb_send_event(_connection.get(), 0, _keeper, XCB_EVENT_MASK_NO_EVENT,
                   static_cast<const char*>(static_cast<const void*>(&event)));
    xcb_flush(_connection.get());
    ++_onTheWay;
}

quint64 X11PopUpInput::menuModifierFlagsAtStart() const
{
    return _modifierMap.menuModifierFlags(_pressedSinceStart(_modifiersAtStart));
}

quint64 X11PopUpInput::menuModifierFlags() const
{
    return _modifierMap.menuModifierFlags(_pressedSinceStart(pointerState(_connection).modifiers));
}

bool X11PopUpInput::nativeEventFilter(const QByteArray& /*eventType*/, void* message, qintptr* /*result*/)
{
    auto* event = static_cast<xcb_generic_event_t*>(message);
    const auto type = event->response_type & ~0x80;
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
        return _filterKeyEvent(*static_cast<xcb_key_press_event_t*>(message));
    if (type == XCB_GE_GENERIC)
        return _isCrossingByGrab(message) || _isClickIntoOwnWindow(message);
    if (_focusWatch.tellsLoss(*event))
        _focusMayBeLost();
    return false;
}

bool X11PopUpInput::_filterKeyEvent(xcb_key_press_event_t& event)
{
    if (event.event == _keeper && _onTheWay > 0) {
        --_onTheWay;
        return _settling;
    }
    if (_filterKey(event, (event.response_type & ~0x80) == XCB_KEY_PRESS))
        return true;
    if (event.event != _keeper || _onTheWay == 0)
        return false;
    _sendToKeeper(event);
    return true;
}

bool X11PopUpInput::_filterKey(xcb_key_press_event_t& event, bool press)
{
    if (!_keyboard.hasBeenOn(event.event))
        return false;
    // Menus act on presses.
    if (!press) {
        _keyReleased(event.detail, event.time);
        return true;
    }
    // Its own grab ends with it, where a window manager may misread that; and it would hide a shortcut.
    if (_keyboard.yielded())
        _keyboard.letGoOfKey();
    if (!_heldKeys.pressedAnew(event.detail, event.time))
        return true;
    if (_settling) {
        // Nobody's but, perhaps, a hot key.
        event.event = _connection.root();
        return false;
    }
    if (_modifierMap.isModifierKey(event.detail)) {
        _modifierPressed(event.detail);
        return true;
    }
    event.state = _pressedSinceStart(event.state);
    event.event = _keeper;
    return false;
}

bool X11PopUpInput::_isCrossingByGrab(const void* message) const
{
    const auto* event = static_cast<const xcb_input_enter_event_t*>(message);
    const bool crossing = event->extension == _inputOpcode &&
                          (event->event_type == XCB_INPUT_ENTER || event->event_type == XCB_INPUT_LEAVE);
    return crossing && event->mode != XCB_INPUT_NOTIFY_MODE_NORMAL;
}

bool X11PopUpInput::_isClickIntoOwnWindow(const void* message)
{
    const auto* event = static_cast<const xcb_input_button_press_event_t*>(message);
    if (event->extension != _inputOpcode)
        return false;
    if (event->event_type == XCB_INPUT_BUTTON_RELEASE)
        return _swallowedButtons.erase(event->detail) > 0;
    if (event->event_type != XCB_INPUT_BUTTON_PRESS || event->event == _keeper)
        return false;
    const QWidget* window = QWidget::find(event->event);
    if (!window || window->windowType() == Qt::Popup)
        return false;
    _swallowedButtons.insert(event->detail);
    return true;
}

void X11PopUpInput::_modifierPressed(quint8 keyCode)
{
    if (!_keyboard.yielded() && (_modifierMap.bitsOfKey(keyCode) & _modifierMap.shortcutBits()))
        _yield();
    Q_EMIT menuModifierFlagsMayHaveChanged();
}

void X11PopUpInput::_keyReleased(quint8 keyCode, xcb_timestamp_t time)
{
    // Modifiers do not repeat.
    if (_modifierMap.isModifierKey(keyCode))
        _heldKeys.up(keyCode);
    else
        _heldKeys.released(keyCode, time);
    if (_settling)
        _settleIfUp();
    else
        _modifiersMayHaveChanged();
}

void X11PopUpInput::_modifiersMayHaveChanged()
{
    _takeKeyboardBackIfUp();
    Q_EMIT menuModifierFlagsMayHaveChanged();
}

void X11PopUpInput::_yield()
{
    _keyboard.yield();
    if (!_keyboard.yielded())
        return;
    // A window manager that answers its shortcut takes the pointer, too.
    _pointer.release();
    // The key may be up already.
    _takeKeyboardBackIfUp();
}

void X11PopUpInput::_takeKeyboardBackIfUp()
{
    if (!_keyboard.yielded() || _takeBackTimer.isActive() || _anyShortcutModifierDown())
        return;
    _takeBackDeadline.setRemainingTime(takeBackPatience);
    _takeBackTimer.start(shortcutTakesEffect);
}

void X11PopUpInput::_takeKeyboardBack()
{
    if (_anyShortcutModifierDown())
        return;
    const bool inFront = outermostWindow(_connection, focusWindow(_connection)) == _front;
    if (inFront && _takeKeyboardInFront(1))
        _takePointerWhenFree();
    else if (inFront && !_takeBackDeadline.hasExpired())
        _takeBackTimer.start(look);
    else
        Q_EMIT lost();
}

void X11PopUpInput::_takePointerWhenFree()
{
    if (_buttonTimer.isActive() || _takePointer())
        return;
    _pointerDeadline.setRemainingTime(pointerPatience);
    _buttonTimer.start();
}

bool X11PopUpInput::_takePointer()
{
    if (!_pointer.take(_pointerDevice))
        return false;
    Q_EMIT pointerTaken();
    return true;
}

bool X11PopUpInput::_anyShortcutModifierDown() const
{
    return (pointerState(_connection).modifiers & _modifierMap.shortcutBits()) != 0;
}

/// Fails when another window has come to the front meanwhile.
bool X11PopUpInput::_takeKeyboardInFront(int attempts)
{
    if (!_keyboard.take(attempts) || outermostWindow(_connection, focusWindow(_connection)) != _front)
        return false;
    _focusWatch.start(_keyboard.window());
    return true;
}

void X11PopUpInput::_focusMayBeLost()
{
    const xcb_window_t front = outermostWindow(_connection, focusWindow(_connection));
    const bool followsPress = _startedByButton && !_sinceStart.hasExpired(focusFollowsPress.count());
    if (followsPress && front == XCB_WINDOW_NONE) {
        _lookAtFocusTimer.start(look); // on its way from one window to another
        return;
    }
    if (front == XCB_WINDOW_NONE || (front != _front && !followsPress)) {
        Q_EMIT lost();
        return;
    }
    _front = front;
    if (!_keyboard.yielded() && !_takeKeyboardInFront(attemptsForKey))
        Q_EMIT lost();
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
    if (_keyboard.yielded() || _takePointer())
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
