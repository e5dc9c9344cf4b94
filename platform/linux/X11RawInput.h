// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

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

    /// Key releases are reported while wanted only: outside a pop-up nobody's typing is looked at.
    void setKeyReleasesWanted(bool wanted);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

Q_SIGNALS:
    /// X button numbers: 1 to 3, 4 to 7 for scrolling, extra buttons from 8.
    void buttonPressed(quint32 button);
    void buttonReleased(quint32 button);
    void keyReleased();

private:
    X11RawInput();
    void _select();

    X11Connection& _connection;
    quint8 _opcode = 0;
    bool _keyReleasesWanted = false;
};

} // namespace tarnwick
