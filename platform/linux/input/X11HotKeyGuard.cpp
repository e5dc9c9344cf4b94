// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11HotKeyGuard.h"

#include "platform/linux/input/X11Focus.h"
#include "platform/linux/input/X11KeyboardGrab.h"
#include "platform/linux/x11/X11Thread.h"

#include <QCoreApplication>
#include <xcb/xinput.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

/// The pauses and readings of a switch of the front application take 3.95 s at most.
constexpr auto guiThreadPatience = 5s;
constexpr auto chordPatience = 600ms;
constexpr auto look = 20ms;
constexpr int attempts = 3;
constexpr auto pauseBetweenAttempts = 5ms;

bool notAfter(xcb_timestamp_t time, xcb_timestamp_t other)
{
    return static_cast<qint32>(time - other) <= 0; // the server's clock wraps
}

bool isPress(const xcb_key_press_event_t& event)
{
    return (event.response_type & ~0x80) == XCB_KEY_PRESS;
}

} // namespace

/// The thread's part. What the GUI thread calls is guarded by a mutex.
class X11HotKeyGuard::Sentry
{
public:
    /// `toolkit` is the connection that the keyboard is grabbed for.
    Sentry(X11Connection& toolkit, OwnX11Connection connection)
        : _toolkit(toolkit), _connection(std::move(connection)), _x11(_connection.get())
    {
        if (_selectFocusOfRoot())
            _thread.emplace(_connection.get(),
                            X11Thread::Work{[this] { _run(); }, [this] { return _due(); }});
    }

    void watch(const QList<Chord>& chords)
    {
        const std::lock_guard lock(_mutex);
        _chords = chords;
    }

    [[nodiscard]] bool holds() const { return _holds; }

    [[nodiscard]] std::optional<Taken> handOver()
    {
        const std::lock_guard lock(_mutex);
        _handedOver = true;
        if (!_holds)
            return std::nullopt;
        _holds = false;
        return Taken{_windows, _down, {}};
    }

    void handBack()
    {
        const std::lock_guard lock(_mutex);
        _handedOver = false;
    }

    /// True when the keyboard is held for a press of that time or before.
    [[nodiscard]] bool dealtWith(xcb_timestamp_t pressed)
    {
        const std::lock_guard lock(_mutex);
        if (!_dealtWith || notAfter(*_dealtWith, pressed))
            _dealtWith = pressed;
        return _holds && notAfter(_pressed, pressed);
    }

    void holdOn(xcb_timestamp_t pressed)
    {
        const std::lock_guard lock(_mutex);
        _pressed = pressed;
        _until = X11Thread::Time::clock::now() + guiThreadPatience;
    }

    [[nodiscard]] X11Keys chordKeys()
    {
        const std::lock_guard lock(_mutex);
        return _down;
    }

    void release()
    {
        const std::lock_guard lock(_mutex);
        _release(_toolkit);
    }

    /// Whether the key came since the press, for a window that the keyboard was taken on.
    [[nodiscard]] bool isHeldKey(const xcb_key_press_event_t& event)
    {
        const std::lock_guard lock(_mutex);
        const bool isThePress = event.time == _pressed && event.detail == _pressedKey;
        return _holds && _windows.contains(event.event) && !(isThePress && isPress(event));
    }

    [[nodiscard]] bool isHotKey(const xcb_key_press_event_t& event)
    {
        const std::lock_guard lock(_mutex);
        return _chords.contains(Chord{event.detail, event.state});
    }

private:
    /// The root window has the keyboard since a grabbed key went down.
    struct RootGrab
    {
        xcb_timestamp_t time;
        quint16 state;
        bool looked = false;
    };

    bool _selectFocusOfRoot()
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

    void _run()
    {
        const std::lock_guard lock(_mutex);
        // What asks the server may have received events by the way: nothing wakes the thread for these.
        do
            _takeEvents();
        while (_act());
    }

    /// False when there is nothing to do.
    bool _act()
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

    [[nodiscard]] std::optional<X11Thread::Time> _due()
    {
        const std::lock_guard lock(_mutex);
        return _holds ? std::optional(_until) : std::nullopt;
    }

    void _takeEvents()
    {
        while (const XcbOwned<xcb_generic_event_t> event{xcb_poll_for_event(_connection.get())})
            _takeEvent(event.get());
    }

    /// The focus seems to go to the root window when a key that is grabbed there goes down, and away from it
    /// when that grab ends or the keyboard is taken on another window.
    void _takeEvent(const void* message)
    {
        const auto* event = static_cast<const xcb_input_focus_in_event_t*>(message);
        const auto type = event->response_type & ~0x80;
        if (type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY)
            _windowGone |= static_cast<const xcb_unmap_notify_event_t*>(message)->window == _watched;
        if (type != XCB_GE_GENERIC || event->extension != _opcode)
            return;
        if (event->event_type == XCB_INPUT_FOCUS_OUT)
            _rootGrab.reset();
        else if (event->event_type == XCB_INPUT_FOCUS_IN && event->mode == XCB_INPUT_NOTIFY_MODE_GRAB)
            _rootGrab = RootGrab{event->time, static_cast<quint16>(event->mods.effective)};
    }

    void _lookAtKeys(xcb_timestamp_t time)
    {
        const X11Keys down = keysDown(_x11);
        _takeEvents(); // what came before the answer: the grab may be over
        if (!_rootGrab || _rootGrab->time != time || _handedOver ||
            (_dealtWith && notAfter(time, *_dealtWith)))
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
        _until = X11Thread::Time::clock::now() + guiThreadPatience;
        _holds = true;
    }

    [[nodiscard]] std::optional<quint8> _hotKeyAmong(const X11Keys& down, quint16 state) const
    {
        for (const Chord& chord : _chords)
            if (chord.state == state && down.test(chord.keyCode))
                return chord.keyCode;
        return std::nullopt;
    }

    /// Over the hot key's own grab, which is the same client's; fails while another client has the keyboard.
    [[nodiscard]] bool _grab()
    {
        for (int attempt = 0; attempt < attempts; ++attempt) {
            if (attempt > 0)
                std::this_thread::sleep_for(pauseBetweenAttempts);
            xcb_window_t window = focusWindow(_x11);
            if (window == XCB_WINDOW_NONE || attempt == attempts - 1)
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
    void _watch(xcb_window_t window)
    {
        _windowGone = false;
        if (window != _watched)
            _select(_watched, XCB_EVENT_MASK_NO_EVENT);
        _select(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY); // an id may be that of a window that has gone
        _watched = window;
        xcb_flush(_connection.get());
    }

    void _select(xcb_window_t window, quint32 mask)
    {
        if (window == XCB_WINDOW_NONE || window == _x11.root())
            return;
        xcb_change_window_attributes(_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
    }

    /// Asks on the connection of the calling thread.
    void _release(X11Connection& asked)
    {
        if (_holds.exchange(false))
            letKeyboardGo(_toolkit, endOfGrabIsMisread(asked));
    }

    X11Connection& _toolkit;
    OwnX11Connection _connection;
    X11Connection _x11;
    quint8 _opcode = 0;
    std::optional<RootGrab> _rootGrab; ///< the thread's alone, as the next two
    xcb_window_t _watched = XCB_WINDOW_NONE;
    bool _windowGone = false;

    std::mutex _mutex; ///< for what follows
    QList<Chord> _chords;
    bool _handedOver = false;
    std::optional<xcb_timestamp_t> _dealtWith;
    std::atomic_bool _holds = false; ///< the keyboard, for the press below
    xcb_timestamp_t _pressed = 0;
    quint8 _pressedKey = 0;
    X11Keys _down;
    QList<xcb_window_t> _windows;
    X11Thread::Time _until;

    std::optional<X11Thread> _thread;
};

X11HotKeyGuard& X11HotKeyGuard::shared()
{
    static X11HotKeyGuard guard;
    return guard;
}

X11HotKeyGuard::X11HotKeyGuard()
{
    _letGoTimer.setInterval(look);
    connect(&_letGoTimer, &QTimer::timeout, this, &X11HotKeyGuard::_letGoWhenUp);
    auto& toolkit = X11Connection::shared();
    auto connection = toolkit ? connectToX11() : nullptr;
    if (!connection)
        return;
    _sentry = std::make_unique<Sentry>(toolkit, std::move(connection));
    // The toolkit's connection ends before this does.
    qAddPostRoutine([] { shared()._stop(); });
}

X11HotKeyGuard::~X11HotKeyGuard() = default;

void X11HotKeyGuard::_stop()
{
    _letGoTimer.stop();
    _sentry.reset();
}

void X11HotKeyGuard::watch(const QList<Chord>& chords)
{
    if (!_sentry)
        return;
    _sentry->watch(chords);
    if (chords.isEmpty())
        _release();
}

std::optional<X11HotKeyGuard::Taken> X11HotKeyGuard::handOver()
{
    if (!_sentry)
        return std::nullopt;
    _letGoTimer.stop();
    auto taken = _sentry->handOver();
    auto keys = std::exchange(_keys, {});
    if (taken)
        taken->keys = std::move(keys);
    return taken;
}

void X11HotKeyGuard::handBack()
{
    if (_sentry)
        _sentry->handBack();
}

void X11HotKeyGuard::letGo(xcb_timestamp_t pressed)
{
    if (!_sentry || !_sentry->dealtWith(pressed) || _letGoTimer.isActive())
        return;
    _letGoDeadline.setRemainingTime(chordPatience);
    _letGoTimer.start();
    _letGoWhenUp();
}

void X11HotKeyGuard::holdOn(xcb_timestamp_t pressed)
{
    if (!_sentry || !_letGoTimer.isActive())
        return;
    _letGoTimer.stop();
    _keys.clear();
    _sentry->holdOn(pressed);
}

void X11HotKeyGuard::_letGoWhenUp()
{
    if (!_letGoDeadline.hasExpired() && (keysDown(X11Connection::shared()) & _sentry->chordKeys()).any())
        return;
    _release();
    Q_EMIT letGoOf();
}

void X11HotKeyGuard::_release()
{
    _letGoTimer.stop();
    _sentry->release();
    _keys.clear();
}

bool X11HotKeyGuard::collect(const xcb_key_press_event_t& event)
{
    // While it is let go of, nothing waits; a hot key may come again.
    if (!_sentry || !_sentry->holds() || _letGoTimer.isActive() || !_sentry->isHeldKey(event))
        return false;
    // A hot key does nothing while a menu is open, or about to be.
    if (!isPress(event) || !_sentry->isHotKey(event))
        _keys.append(event);
    return true;
}

} // namespace tarnwick

#include "moc_X11HotKeyGuard.cpp"
