// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/PopUpKeys.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWindow>

namespace tarnwick {

/// The keys of one showing of a pop-up where they come to us one by one, and with them all that is known of
/// the modifiers. Modifier keys choose which alternates are shown and are never handed on; menus act on
/// presses. Keys that come before the menu can be seen wait for it, and so do those that come before a
/// submenu can: a submenu of a menu that is not on the screen yet would be put in a wrong place. GUI thread
/// only.
class MenuKeys final : public QObject
{
    Q_OBJECT

public:
    struct Press
    {
        quint32 code = 0;                 ///< the system's
        quint64 time = 0;                 ///< milliseconds on any steady clock
        int key = 0;                      ///< Qt::Key
        QString text = {};                ///< what it types
        quint32 keysym = 0;               ///< the system's symbol of it
        bool repeats = false;             ///< of a key that is held down
        bool isModifier = false;          ///< or a lock key
        Qt::KeyboardModifiers modifier{}; ///< the one that it is, if menus go by that
    };

    /// A pop-up is going to open: no key is down that is known of.
    void begin();
    /// It has been opened: the keys that wait are handed on as soon as it can be seen.
    void open();
    /// It has closed: what still waits goes nowhere.
    void end();

    void press(const Press& press);
    void release(quint32 code, quint64 time);

    /// ModifierFlag bits, as menus mean them, of the modifiers that were pressed since begin() and are down.
    [[nodiscard]] quint64 menuModifierFlags() const;

Q_SIGNALS:
    void menuModifierFlagsChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Waiting
    {
        Press press;
        Qt::KeyboardModifiers modifiers;
    };

    [[nodiscard]] Qt::KeyboardModifiers _modifiers() const;
    void _handOn();
    void _awaitExposure(QWindow* window);

    PopUpKeys _keys;
    QHash<quint8, quint16> _bitsOfKeys; ///< of those that were pressed
    QList<Waiting> _waiting;
    bool _open = false;
    bool _handingOn = false;
    QPointer<QWindow> _awaited;
};

} // namespace tarnwick
