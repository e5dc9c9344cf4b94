// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11HotKeySentry.h"

#include <QDeadlineTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace tarnwick {

/// Sees to it that from the press of a hot key on no key does anything in the application in front, whatever
/// the GUI thread is doing: neither the chord, a lone modifier of which would open a menu bar, nor what is
/// typed before the menu is there. The server tells a thread with an X connection of its own of each key that
/// is grabbed on the root window, and of no other key; when it is a hot key of ours, the thread grabs the
/// keyboard for the GUI thread's connection at once, on the focus window. The keys wait there for the GUI
/// thread, and become everybody's again when it has not come after 5 s, or when this program ends. GUI thread
/// only.
///
/// A grab that freezes the keyboard until it is answered would need no thread, but a stopped program would
/// then stop all typing.
class X11HotKeyGuard final : public QObject
{
    Q_OBJECT

public:
    static X11HotKeyGuard& shared();
    ~X11HotKeyGuard() override;

    using Chord = X11Chord;
    /// The hot keys, each with every combination of the lock keys. Without any, nothing is held any more.
    void watch(const QList<Chord>& chords);

    using Taken = X11TakenKeys;
    /// For whoever has the keyboard on the toolkit's connection now: what was taken before. No press of a hot
    /// key counts until handBack(). Nothing when no press had been seen.
    [[nodiscard]] std::optional<Taken> handOver();
    void handBack();

    /// The press of this server time has been dealt with. If the keyboard is still held for it, it is given
    /// back as soon as the keys of the chord are up, or after 0.6 s.
    void letGo(xcb_timestamp_t pressed);
    /// A hot key was pressed anew while the keyboard was being let go of: it is held on for that press.
    void holdOn(xcb_timestamp_t pressed);

    /// For each key that comes: true when it waits here for the menu, and is nobody else's.
    [[nodiscard]] bool collect(const xcb_key_press_event_t& event);

Q_SIGNALS:
    /// The keyboard is everybody's again, though no menu has taken it over: what is still down comes no more.
    void letGoOf();

private:
    X11HotKeyGuard();
    void _stop();
    void _letGoWhenUp();
    void _release();

    std::unique_ptr<X11HotKeySentry> _sentry; ///< null without an X server
    QList<xcb_key_press_event_t> _keys;
    QTimer _letGoTimer;
    QDeadlineTimer _letGoDeadline;
};

} // namespace tarnwick
