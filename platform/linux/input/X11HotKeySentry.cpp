// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11HotKeySentry.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11KeyboardGrab.h"
#include "platform/linux/x11/X11EventFilter.h"

#include <xcb/xinput.h>

#include <chrono>
#include <thread>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

/// The pauses and readings of a switch of the front application take 3.95 s at most.
constexpr auto GuiThreadPatience = 5s;
constexpr int Attempts = 3;
constexpr auto PauseBetweenAttempts = 5ms;

bool notAfter(xcb_timestamp_t time, xcb_timestamp_t other)
{
    return static_cast<qint32>(time - other) <= 0; // the server's clock wraps
}

} // namespace

X11HotKeySentry::X11HotKeySentry(X11Connection& toolkit, OwnX11Connection connection)
    : _toolkit(toolkit), _connection(std::move(connection)), _x11(_connection.get())
{
    if (_selectFocusOfRoot())
        _thread.emplace(_connection.get(), X11Thread::Work{[this] { _run(); }, [this] { return _due(); }});
}

void X11HotKeySentry::watch(const QList<X11Chord>& chords)
{
    const std::lock_guard lock(_mutex);
    _chords = chords;
}

std::optional<X11TakenKeys> X11HotKeySentry::handOver()
{
    const std::lock_guard lock(_mutex);
    _handedOver = true;
    if (!_holds)
        return std::nullopt;
    _holds = false;
    return X11TakenKeys{_windows, _down, {}};
}

void X11HotKeySentry::handBack()
{
    const std::lock_guard lock(_mutex);
    _handedOver = false;
}

bool X11HotKeySentry::dealtWith(xcb_timestamp_t pressed)
{
    const std::lock_guard lock(_mutex);
    if (!_dealtWith || notAfter(*_dealtWith, pressed))
        _dealtWith = pressed;
    return _holds && notAfter(_pressed, pressed);
}

void X11HotKeySentry::holdOn(xcb_timestamp_t pressed)
{
    const std::lock_guard lock(_mutex);
    _pressed = pressed;
    _until = X11Thread::Time::clock::now() + GuiThreadPatience;
}

X11Keys X11HotKeySentry::chordKeys()
{
    const std::lock_guard lock(_mutex);
    return _down;
}

void X11HotKeySentry::release()
{
    const std::lock_guard lock(_mutex);
    _release(_toolkit);
}

bool X11HotKeySentry::isHeldKey(const xcb_key_press_event_t& event)
{
    const std::lock_guard lock(_mutex);
    const bool isThePress = event.time == _pressed && event.detail == _pressedKey;
    return _holds && _windows.contains(event.event) && !(isThePress && x11EventType(event) == XCB_KEY_PRESS);
}

bool X11HotKeySentry::isHotKey(const xcb_key_press_event_t& event)
{
    const std::lock_guard lock(_mutex);
    return _chords.contains(X11Chord{event.detail, event.state});
}

bool X11HotKeySentry::_selectFocusOfRoot()
{
    const auto* extension = xcb_get_extension_data(_connection.get(), &xcb_input_id);
    if (!extension || !extension->present)
        return false;
    _opcode = extension->major_opcode;
    const auto version = xcb_input_xi_query_version(_connection.get(), 2, 2);
    xcb_discard_reply(_connection.get(), version.sequence);
    struct
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                XCB_INPUT_XI_EVENT_MASK_FOCUS_IN | XCB_INPUT_XI_EVENT_MASK_FOCUS_OUT};
    xcb_input_xi_select_events(_connection.get(), _x11.root(), 1, &selection.head);
    _x11.sync(); // a hot key that is registered from now on is seen
    return true;
}

void X11HotKeySentry::_run()
{
    const std::lock_guard lock(_mutex);
    // What asks the server may have received events by the way: nothing wakes the thread for these.
    do
        _takeEvents();
    while (_act());
}

/// False when there is nothing to do.
bool X11HotKeySentry::_act()
{
    if (_rootGrab && !_rootGrab->looked) {
        _rootGrab->looked = true;
        _lookAtKeys(_rootGrab->time);
    } else if (_holds && _windowGone) {
        _holds = _grab();
    } else if (_holds && X11Thread::Time::clock::now() >= _until) {
        _release(_x11);
    } else {
        return false;
    }
    return true;
}

std::optional<X11Thread::Time> X11HotKeySentry::_due()
{
    const std::lock_guard lock(_mutex);
    return _holds ? std::optional(_until) : std::nullopt;
}

void X11HotKeySentry::_takeEvents()
{
    while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(_connection.get())})
        _takeEvent(*event);
}

/// The focus seems to go to the root window when a key that is grabbed there goes down, and away from it
/// when that grab ends or the keyboard is taken on another window.
void X11HotKeySentry::_takeEvent(const xcb_generic_event_t& event)
{
    const auto type = x11EventType(event);
    if (type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY)
        _windowGone |= x11EventAs<xcb_unmap_notify_event_t>(event).window == _watched;
    if (!isOfX11Extension(event, _opcode))
        return;
    const auto& focus = x11EventAs<xcb_input_focus_in_event_t>(event);
    if (focus.event_type == XCB_INPUT_FOCUS_OUT)
        _rootGrab.reset();
    else if (focus.event_type == XCB_INPUT_FOCUS_IN && focus.mode == XCB_INPUT_NOTIFY_MODE_GRAB)
        _rootGrab = RootGrab{focus.time, static_cast<quint16>(focus.mods.effective)};
}

void X11HotKeySentry::_lookAtKeys(xcb_timestamp_t time)
{
    const X11Keys down = keysDown(_x11);
    _takeEvents(); // what came before the answer: the grab may be over
    if (!_rootGrab || _rootGrab->time != time || _handedOver || (_dealtWith && notAfter(time, *_dealtWith)))
        return;
    const auto key = _hotKeyAmong(down, _rootGrab->state);
    if (!key || _holds)
        return;
    _windows.clear();
    if (!_grab())
        return;
    _pressedKey = *key;
    _down = down;
    _pressed = time;
    _until = X11Thread::Time::clock::now() + GuiThreadPatience;
    _holds = true;
}

std::optional<quint8> X11HotKeySentry::_hotKeyAmong(const X11Keys& down, quint16 state) const
{
    for (const X11Chord& chord : _chords)
        if (chord.state == state && down.test(chord.keyCode))
            return chord.keyCode;
    return std::nullopt;
}

/// Over the hot key's own grab, which is the same client's; fails while another client has the keyboard.
bool X11HotKeySentry::_grab()
{
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        if (attempt > 0)
            std::this_thread::sleep_for(PauseBetweenAttempts);
        xcb_window_t window = focusWindow(_x11);
        if (window == XCB_WINDOW_NONE || attempt == Attempts - 1)
            window = _x11.root(); // the focus window may just be going
        _watch(window);
        if (grabKeyboard(_toolkit, window) == XCB_GRAB_STATUS_SUCCESS) {
            if (!_windows.contains(window))
                _windows.append(window);
            return true;
        }
    }
    return false;
}

/// A grab ends with its window.
void X11HotKeySentry::_watch(xcb_window_t window)
{
    _windowGone = false;
    if (window != _watched)
        _select(_watched, XCB_EVENT_MASK_NO_EVENT);
    _select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY); // an id may be that of a window that has gone
    _watched = window;
    xcb_flush(_connection.get());
}

void X11HotKeySentry::_select(xcb_window_t window, quint32 mask)
{
    if (window == XCB_WINDOW_NONE || window == _x11.root())
        return;
    xcb_change_window_attributes(_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
}

/// Asks on the connection of the calling thread.
void X11HotKeySentry::_release(X11Connection& asked)
{
    if (_holds.exchange(false))
        letKeyboardGo(_toolkit, endOfGrabIsMisread(asked));
}

} // namespace tarnwick
