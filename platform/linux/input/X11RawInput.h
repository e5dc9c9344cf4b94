// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11EventFilter.h"

#include <QElapsedTimer>
#include <QObject>

#include <chrono>

namespace tarnwick {

class X11Connection;

/// Presses and releases as the devices report them, whoever has the keyboard or the pointer. They are only
/// watched, never taken from anybody. Signals come from inside the native event filter: receivers that do
/// more than store something must queue. GUI thread only.
class X11RawInput : public QObject, public X11EventFilter
{
    Q_OBJECT

public:
    static X11RawInput& shared();

    /// False when the server cannot report raw input; nothing is ever signalled then.
    [[nodiscard]] bool available() const { return _opcode != 0; }

    /// While one is alive, key releases are reported: otherwise nobody's typing is looked at. What is
    /// released while this program has the keyboard grabbed on the root window is not reported: it comes as
    /// an event.
    class KeyWatch
    {
    public:
        KeyWatch() { shared()._watchKeys(1); }
        ~KeyWatch() { shared()._watchKeys(-1); }
        KeyWatch(const KeyWatch&) = delete;
        KeyWatch& operator=(const KeyWatch&) = delete;
    };

    /// Whether a button was pressed at most so long ago; it may be up again.
    [[nodiscard]] bool pressedWithin(std::chrono::milliseconds time) const
    {
        return _sincePress.isValid() && !_sincePress.hasExpired(time.count());
    }

Q_SIGNALS:
    /// X button numbers: 1 to 3, 4 to 7 for scrolling, extra buttons from 8.
    void buttonPressed(quint32 button);
    void buttonReleased(quint32 button);
    /// The key is really up: repeats are not reported.
    void keyReleased(quint32 keyCode);

protected:
    [[nodiscard]] bool filter(std::uint8_t type, xcb_generic_event_t& event) override;

private:
    X11RawInput();
    void _watchKeys(int change);
    void _select();

    X11Connection& _connection;
    quint8 _opcode = 0;
    int _keyWatches = 0;
    QElapsedTimer _sincePress;
};

} // namespace tarnwick
