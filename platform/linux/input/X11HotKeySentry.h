// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11Keyboard.h"
#include "platform/linux/x11/X11Thread.h"

#include <QList>

#include <atomic>
#include <mutex>
#include <optional>

namespace tarnwick {

/// A key with the modifiers that it is a hot key with.
struct X11Chord
{
    quint8 keyCode;
    quint16 state; ///< core modifier state, lock keys included
    friend bool operator==(const X11Chord&, const X11Chord&) = default;
};

/// What was taken for a menu before the menu could take it.
struct X11TakenKeys
{
    QList<xcb_window_t> windows;       ///< that keys came for, or may yet come for
    X11Keys down;                      ///< at the press: the hot key and its modifiers
    QList<xcb_key_press_event_t> keys; ///< presses and releases since, in order
};

/// The thread that grabs the keyboard for the GUI thread's connection at the press of a hot key, and gives it
/// back when the GUI thread does not come for 5 s. What is public is for the GUI thread.
class X11HotKeySentry
{
public:
    /// `toolkit` is the connection that the keyboard is grabbed for.
    X11HotKeySentry(X11Connection& toolkit, OwnX11Connection connection);
    X11HotKeySentry(const X11HotKeySentry&) = delete;
    X11HotKeySentry& operator=(const X11HotKeySentry&) = delete;

    void watch(const QList<X11Chord>& chords);

    /// Whether it has the keyboard now.
    [[nodiscard]] bool holds() const { return _holds; }

    /// Without the keys that came since. Nothing when it holds nothing. No press counts until handBack().
    [[nodiscard]] std::optional<X11TakenKeys> handOver();
    void handBack();

    /// No press of that time or before counts any more. True when the keyboard is held for one of them.
    [[nodiscard]] bool dealtWith(xcb_timestamp_t pressed);
    /// Holds the keyboard for a press of that time, as long as for a new one.
    void holdOn(xcb_timestamp_t pressed);
    void release();

    /// The keys of the chord that it holds the keyboard for.
    [[nodiscard]] X11Keys chordKeys();
    /// Whether the key came since the press, for a window that the keyboard was taken on.
    [[nodiscard]] bool isHeldKey(const xcb_key_press_event_t& event);
    [[nodiscard]] bool isHotKey(const xcb_key_press_event_t& event);

private:
    /// The root window has the keyboard since a grabbed key went down.
    struct RootGrab
    {
        xcb_timestamp_t time;
        quint16 state;
        bool looked = false;
    };

    bool _selectFocusOfRoot();
    void _run();
    [[nodiscard]] bool _act();
    [[nodiscard]] std::optional<X11Thread::Time> _due();
    void _takeEvents();
    void _takeEvent(const xcb_generic_event_t& event);
    void _lookAtKeys(xcb_timestamp_t time);
    [[nodiscard]] std::optional<quint8> _hotKeyAmong(const X11Keys& down, quint16 state) const;
    [[nodiscard]] bool _grab();
    void _watch(xcb_window_t window);
    void _select(xcb_window_t window, quint32 mask);
    void _release(X11Connection& asked);

    X11Connection& _toolkit;
    OwnX11Connection _connection;
    X11Connection _x11;
    quint8 _opcode = 0;
    std::optional<RootGrab> _rootGrab; ///< the thread's alone, as the next two
    xcb_window_t _watched = XCB_WINDOW_NONE;
    bool _windowGone = false;

    std::mutex _mutex; ///< for what follows
    QList<X11Chord> _chords;
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

} // namespace tarnwick
