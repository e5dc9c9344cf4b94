// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpInput.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11HotKeyGuard.h"
#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/input/X11KeyboardMap.h"
#include "platform/linux/x11/X11Connection.h"

#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr int AttemptsForKey = 6;
constexpr int AttemptsForButton = 1;
constexpr auto LookInterval = 20ms;
constexpr auto SettlePatience = 600ms;
/// A window manager grabs keyboard and pointer for its shortcut a moment after the key.
constexpr auto ShortcutTakesEffect = 50ms;
constexpr auto TakeBackPatience = 600ms;

} // namespace

X11PopUpInput::X11PopUpInput(X11Connection& connection, xcb_window_t keeper)
    : _connection(connection), _keyboard(connection), _keys(connection, keeper), _pointer(connection, keeper),
      _focus(connection)
{
    _timer.setSingleShot(true);
    connect(&_timer, &QTimer::timeout, this, &X11PopUpInput::_timeout);
    _followPieces();
}

X11PopUpInput::~X11PopUpInput()
{
    if (_state != PopUpState::Ended)
        static_cast<void>(end());
}

void X11PopUpInput::_followPieces()
{
    connect(&_pointer, &X11PopUpPointer::taken, this, &X11PopUpInput::pointerTaken);
    connect(&_pointer, &X11PopUpPointer::lost, this, &X11PopUpInput::lost);
    connect(&_pointer, &X11PopUpPointer::pressedElsewhere, this, &X11PopUpInput::pressedElsewhere);
    connect(&_pointer, &X11PopUpPointer::dragged, this, &X11PopUpInput::dragged);
    connect(&_pointer, &X11PopUpPointer::dragReleased, this, &X11PopUpInput::dragReleased);
    connect(&_focus, &X11PopUpFocus::lost, this, &X11PopUpInput::lost);
    connect(&_focus, &X11PopUpFocus::moved, this, &X11PopUpInput::_focusMoved);
}

bool X11PopUpInput::begin()
{
    // What does not need another answer is asked together: somebody waits for the menu.
    X11PointerQuestion pointerAsked(_connection);
    X11FocusQuestion focusAsked(_connection);
    const X11PointerState pointer = pointerAsked.answer();
    X11OutermostQuestion frontAsked(_connection, focusAsked.answer());
    X11PopUpKeys::Start keys;
    keys.modifierMap = X11KeyboardMap::shared().modifiers();
    // A quick click is over by now, and the window manager may still be about to answer it.
    const bool byButton =
        pointer.anyButtonDown || X11RawInput::shared().pressedWithin(X11PopUpFocus::FollowsPress);
    // A button trigger over an application whose own menu is open: that menu has the keyboard and keeps it.
    if (!_keyboard.take(byButton ? AttemptsForButton : AttemptsForKey, frontAsked.of()))
        return false;
    auto ahead = X11HotKeyGuard::shared().handOver();
    frontAsked.advance();
    _keyWatch.emplace();
    X11KeysQuestion keysAsked(_connection);
    X11PointerQuestion modifiersAsked(_connection);
    X11FocusQuestion focusAskedAgain(_connection);
    _focus.ask(_keyboard.window());
    if (!byButton && !_pointer.take(pointer.device)) {
        _keyboard.release();
        _connection.sync();
        X11HotKeyGuard::shared().handBack();
        return false;
    }
    keys.down = ahead ? ahead->down : keysAsked.answer();
    if (ahead) {
        for (const xcb_window_t window : std::as_const(ahead->windows))
            _keyboard.expectKeysFor(window);
        keys.typedAhead = std::move(ahead->keys);
    }
    keys.modifiers = modifiersAsked.answer().modifiers;
    _keys.start(std::move(keys));
    frontAsked.advance();
    const xcb_window_t focus = focusAskedAgain.answer();
    _focus.watch(_keyboard.window());
    _focus.start(focus == frontAsked.of() ? frontAsked.answer() : outermostWindow(_connection, focus),
                 byButton);
    if (byButton)
        _pointer.follow(pointer);
    _followRawInput();
    install();
    _after(PopUpEvent::Began);
    return true;
}

void X11PopUpInput::_followRawInput()
{
    auto& raw = X11RawInput::shared();
    connect(&raw, &X11RawInput::buttonReleased, this, &X11PopUpInput::_settleIfUp);
    connect(&raw, &X11RawInput::keyReleased, this, [this](quint32 keyCode) {
        _keys.up(static_cast<quint8>(keyCode));
        _modifiersMayHaveChanged();
    });
}

void X11PopUpInput::typeAhead()
{
    for (xcb_key_press_event_t key : _keys.takeTypedAhead())
        if (!_filterUsersKey(key))
            _keys.sendToKeeper(key);
}

bool X11PopUpInput::settle()
{
    _after(PopUpEvent::MenuClosed);
    _pointer.settle();
    _focus.settle();
    return _isUp();
}

bool X11PopUpInput::end()
{
    _after(PopUpEvent::EverythingGivenBack);
    remove();
    X11RawInput::shared().disconnect(this);
    _keyWatch.reset();
    _focus.stop();
    _pointer.release();
    _keyboard.release();
    _connection.sync();
    X11HotKeyGuard::shared().handBack();
    return _focus.isWhereItWas();
}

bool X11PopUpInput::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        void* bytes = &event;
        return _filterKey(*static_cast<xcb_key_press_event_t*>(bytes));
    }
    if (type == XCB_GE_GENERIC)
        return _pointer.swallows(event);
    _focus.see(event);
    return false;
}

bool X11PopUpInput::_filterKey(xcb_key_press_event_t& event)
{
    if (_keys.comesBack(event))
        return _state == PopUpState::Settling;
    if (_filterUsersKey(event))
        return true;
    if (!_keys.hasToWait(event))
        return false;
    _keys.sendToKeeper(event);
    return true;
}

bool X11PopUpInput::_filterUsersKey(xcb_key_press_event_t& event)
{
    if (!_keyboard.hasBeenOn(event.event))
        return false;
    if (x11EventType(event) == XCB_KEY_PRESS)
        return _filterPress(event);
    // Menus act on presses.
    _released(event);
    return true;
}

bool X11PopUpInput::_filterPress(xcb_key_press_event_t& event)
{
    // Its own grab ends with it, where a window manager may misread that; and it would hide a shortcut.
    if (_keyboard.yielded())
        _keyboard.letGoOfKey();
    const PopUpKeys::Way way = _keys.press(event);
    if (way == PopUpKeys::Way::Nowhere)
        return true;
    if (_state == PopUpState::Settling) {
        // Nobody's but, perhaps, a hot key.
        event.event = _connection.root();
        return false;
    }
    if (way == PopUpKeys::Way::ToAlternates) {
        _modifierPressed(event.detail);
        return true;
    }
    _keys.handToKeeper(event);
    return false;
}

void X11PopUpInput::_modifierPressed(quint8 keyCode)
{
    if (_keys.isShortcutModifier(keyCode))
        _yield();
    Q_EMIT menuModifierFlagsMayHaveChanged();
}

void X11PopUpInput::_released(const xcb_key_press_event_t& event)
{
    _keys.release(event);
    if (_state == PopUpState::Settling)
        _settleIfUp();
    else
        _modifiersMayHaveChanged();
}

void X11PopUpInput::_modifiersMayHaveChanged()
{
    _takeBackIfModifiersUp();
    Q_EMIT menuModifierFlagsMayHaveChanged();
}

void X11PopUpInput::_after(PopUpEvent event)
{
    const PopUpState before = std::exchange(_state, stateAfter(_state, event));
    if (_state == before)
        return;
    _timer.stop();
    if (_state == PopUpState::TakingBack) {
        _deadline.setRemainingTime(TakeBackPatience);
        _timer.start(ShortcutTakesEffect);
    } else if (_state == PopUpState::Settling) {
        _deadline.setRemainingTime(SettlePatience);
        _timer.start(LookInterval);
    }
}

void X11PopUpInput::_timeout()
{
    if (_state == PopUpState::TakingBack) {
        _takeBack();
    } else {
        _timer.start(LookInterval);
        _settleIfUp();
    }
}

void X11PopUpInput::_yield()
{
    if (_keyboard.yielded())
        return;
    _keyboard.yield();
    if (!_keyboard.yielded())
        return;
    // A window manager that answers its shortcut takes the pointer, too.
    _pointer.yield();
    _after(PopUpEvent::Gave);
    // The key may be up already.
    _takeBackIfModifiersUp();
}

void X11PopUpInput::_takeBackIfModifiersUp()
{
    if (_state == PopUpState::Yielded && !_keys.anyShortcutModifierDown())
        _after(PopUpEvent::ModifiersUp);
}

void X11PopUpInput::_takeBack()
{
    if (_keys.anyShortcutModifierDown()) {
        _after(PopUpEvent::ModifierDown);
        return;
    }
    const bool inFront = _focus.isWhereItWas();
    if (inFront && _takeKeyboardInFront(1)) {
        _after(PopUpEvent::Took);
        _pointer.takeBack();
    } else if (inFront && !_deadline.hasExpired()) {
        _timer.start(LookInterval);
    } else {
        _after(PopUpEvent::CouldNotTake);
        Q_EMIT lost();
    }
}

/// Fails when another window has come to the front meanwhile.
bool X11PopUpInput::_takeKeyboardInFront(int attempts)
{
    if (!_keyboard.take(attempts) || !_focus.isWhereItWas())
        return false;
    _focus.watch(_keyboard.window());
    return true;
}

void X11PopUpInput::_focusMoved()
{
    if (!_keyboard.yielded() && !_takeKeyboardInFront(AttemptsForKey))
        Q_EMIT lost();
}

void X11PopUpInput::_settleIfUp()
{
    if (_state == PopUpState::Settling && _isUp())
        Q_EMIT settled();
}

bool X11PopUpInput::_isUp() const
{
    return _deadline.hasExpired() ||
           (keysDown(_connection).none() && !pointerState(_connection).anyButtonDown);
}

} // namespace tarnwick

#include "moc_X11PopUpInput.cpp"
