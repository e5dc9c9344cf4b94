// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QObject>

#include <chrono>

namespace tarnwick {

class X11Connection;

/// Presses and releases as the devices report them, whoever has the keyboard or the pointer. They are looked
/// on at, never taken from anybody. Signals come from inside the native event filter: receivers that do more
/// than store something must queue. GUI thread only.
class X11RawInput : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    static X11RawInput& shared();
    ~X11RawInput() override;

    /// False when the server cannot report raw input; nothing is ever signalled then.
    [[nodiscard]] bool available() const { return _opcode != 0; }

    /// While one is alive, key releases are reported: otherwise nobody's typing is looked at. Those are not
    /// that happen while this program has the keyboard grabbed on the root window: it gets them as events.
    class KeyWatch
    {
    public:
        KeyWatch() { shared()._watchKeys(1); }
        ~KeyWatch() { shared()._watchKeys(-1); }
        KeyWatch(const KeyWatch&) = delete;
        KeyWatch& operator=(const KeyWatch&) = delete;
    };

    /// Whether a button was pressed at most so long ago, be it up again or not.
    [[nodiscard]] bool pressedWithin(std::chrono::milliseconds time) const
    {
        return _sincePress.isValid() && !_sincePress.hasExpired(time.count());
    }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    /// X button numbers: 1 to 3, 4 to 7 for scrolling, extra buttons from 8.
    void buttonPressed(quint32 button);
    void buttonReleased(quint32 button);
    /// The key is really up: repeats are not reported.
    void keyReleased(quint32 keyCode);

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
