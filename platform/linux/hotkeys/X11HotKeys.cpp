// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11HotKeys.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11HotKeyGuard.h"
#include "platform/linux/input/X11KeyGrab.h"
#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/input/X11KeyboardMap.h"
#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

constexpr auto MapChangeSettles = 20ms;

} // namespace

X11HotKeys::X11HotKeys(TriggerOrder order) : _order(std::move(order)), _connection(X11Connection::shared())
{
    if (!_connection)
        return;
    _modifierMap = X11KeyboardMap::shared().modifiers();

    // One change of the map is told in many events.
    _mapChangeTimer.setSingleShot(true);
    _mapChangeTimer.setInterval(MapChangeSettles);
    connect(&X11KeyboardMap::shared(), &X11KeyboardMap::changed, &_mapChangeTimer,
            qOverload<>(&QTimer::start));
    connect(&_mapChangeTimer, &QTimer::timeout, this, &X11HotKeys::_followKeyboardMap);
    // While a menu is open, the key's release is seen by the menu only.
    connect(&MenuTracking::shared(), &MenuTracking::ended, this, &X11HotKeys::_menuEnded);
    connect(&X11RawInput::shared(), &X11RawInput::keyReleased, this, &X11HotKeys::_forgetHeldKeyWhenUp);
    // Events go to the filter first that was installed last: keys that wait for the menu are not for this
    // one.
    connect(&X11HotKeyGuard::shared(), &X11HotKeyGuard::letGoOf, this, &X11HotKeys::_expectNoRelease);
    install();
}

X11HotKeys::~X11HotKeys()
{
    if (_connection)
        X11HotKeyGuard::shared().watch({});
}

void X11HotKeys::installEventHandler(std::function<qint32()> handler)
{
    _handlers.push_back(std::move(handler));
}

std::optional<EventHotKeyRef> X11HotKeys::registerEventHotKey(quint32 keyCode, quint32 modifiers,
                                                              EventHotKeyID /*id*/, quint32 /*options*/)
{
    const auto x11KeyCode = x11KeyCodeOf(keyCode);
    if (!_connection || !x11KeyCode || *x11KeyCode > MaximumX11KeyCode)
        return std::nullopt;
    const auto key = static_cast<quint8>(*x11KeyCode);
    const auto bits = _modifierMap.bitsOfEventModifiers(modifiers);
    if (!bits || _isRegistered(key, *bits))
        return std::nullopt;
    auto grab = X11KeyGrab::take(_connection, _modifierMap, key, modifiers);
    if (!grab)
        return std::nullopt;
    _grabs.emplace(++_lastRef, std::move(grab));
    _watchOver();
    _ignoreUntilUp(key);
    return _lastRef;
}

void X11HotKeys::_watchOver()
{
    QList<X11HotKeyGuard::Chord> chords;
    for (const auto& [ref, grab] : _grabs)
        for (const quint16 state : grab->states())
            chords.append({grab->keyCode(), state});
    X11HotKeyGuard::shared().watch(chords);
}

// A combination that has just been recorded may still be held down: its repeats are no presses.
void X11HotKeys::_ignoreUntilUp(quint8 keyCode)
{
    if (!keysDown(_connection).test(keyCode))
        return;
    _heldKeys.hold(keyCode);
    _firedKey = keyCode;
    _forgetHeldKeyWhenUp();
}

bool X11HotKeys::unregisterEventHotKey(EventHotKeyRef hotKey)
{
    if (_grabs.erase(hotKey) == 0)
        return false;
    _watchOver();
    return true;
}

bool X11HotKeys::heldElsewhere(quint32 keyCode, quint32 modifiers) const
{
    const auto x11KeyCode = x11KeyCodeOf(keyCode);
    const auto bits = _modifierMap.bitsOfEventModifiers(modifiers);
    if (!_connection || !x11KeyCode || *x11KeyCode > MaximumX11KeyCode || !bits)
        return false;
    const auto key = static_cast<quint8>(*x11KeyCode);
    // Giving a trial of our own combination back would take it from the hot key.
    if (_isRegistered(key, *bits))
        return false;
    const bool free = X11KeyGrab::take(_connection, _modifierMap, key, modifiers) != nullptr;
    _connection.sync();
    return !free;
}

bool X11HotKeys::filter(std::uint8_t type, xcb_generic_event_t& event)
{
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    const auto& key = x11EventAs<xcb_key_press_event_t>(event);
    if (X11HotKeyGuard::shared().collect(key))
        return true;
    // For windows of other programs keys come by a grab only: a hot key's, or one of a menu that has closed
    // since.
    if (isToolkitWindow(key.event))
        return false;
    if (type == XCB_KEY_RELEASE) {
        _heldKeys.released(key.detail, key.time);
        return false;
    }
    if (!_isRegistered(key.detail, key.state))
        return false;
    _keyPressed(key);
    return true;
}

bool X11HotKeys::_isRegistered(quint8 keyCode, quint16 state) const
{
    return std::any_of(_grabs.cbegin(), _grabs.cend(), [&](const auto& entry) {
        return entry.second->matches(keyCode, state, _modifierMap);
    });
}

void X11HotKeys::_keyPressed(const xcb_key_press_event_t& event)
{
    if (!_heldKeys.pressedAnew(event.detail, event.time) || QApplication::activePopupWidget()) {
        X11HotKeyGuard::shared().letGo(event.time);
        return;
    }
    _heldKeys.forgetAll();
    _heldKeys.hold(event.detail);
    _firedKey = event.detail;
    _firedAt = event.time;
    X11HotKeyGuard::shared().holdOn(event.time);
    // Handlers open menus, which run event loops: never from inside a filter.
    _order([self = QPointer(this)] {
        if (self)
            self->_offerPress();
    });
}

void X11HotKeys::_menuEnded()
{
    _forgetHeldKeyWhenUp();
    if (_offerWhenEnded)
        QMetaObject::invokeMethod(this, &X11HotKeys::_offerPress, Qt::QueuedConnection);
}

void X11HotKeys::_forgetHeldKeyWhenUp()
{
    if (!_firedKey)
        return;
    // Looked for before the question, so that a release in between is not missed.
    if (!_keyWatch)
        _keyWatch.emplace();
    if (keysDown(_connection).test(*_firedKey))
        return;
    _heldKeys.forgetAll();
    _firedKey.reset();
    _keyWatch.reset();
}

/// The release of a key that is still down, or that of its next repeat, goes to the application.
void X11HotKeys::_expectNoRelease()
{
    if (_firedKey && keysDown(_connection).test(*_firedKey))
        _heldKeys.hold(*_firedKey);
}

void X11HotKeys::_offerPress()
{
    const bool menuIsOpen = QApplication::activePopupWidget() != nullptr;
    // The menu is closed for the eye, but not quite: its turn comes at once.
    _offerWhenEnded = !menuIsOpen && MenuTracking::shared().active();
    if (_offerWhenEnded)
        return;
    const auto pressed = _firedAt;
    if (!menuIsOpen) {
        // Once the menu is there: it sees the key's release alone, and may have had it by then.
        QMetaObject::invokeMethod(this, &X11HotKeys::_forgetHeldKeyWhenUp, Qt::QueuedConnection);
        _callHandlers();
    }
    X11HotKeyGuard::shared().letGo(pressed);
}

void X11HotKeys::_callHandlers() const
{
    const auto handlers = _handlers;
    for (auto handler = handlers.rbegin(); handler != handlers.rend(); ++handler)
        if ((*handler)() == noErr)
            return;
}

void X11HotKeys::_followKeyboardMap()
{
    _modifierMap = X11KeyboardMap::shared().modifiers();
    for (const auto& [ref, grab] : _grabs)
        grab->follow(_modifierMap);
    _watchOver();
    xcb_flush(_connection.get());
}

} // namespace tarnwick

#include "moc_X11HotKeys.cpp"
