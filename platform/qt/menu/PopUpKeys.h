// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/HeldKeys.h"

#include <QSet>

#include <functional>

namespace tarnwick {

/// Where keys go while a pop-up has the keyboard. The keys that are down when it opens, the hot key and its
/// modifiers, do nothing until they have been up; modifier keys choose which alternates are shown and are
/// never handed on. Plain data; key codes, times and modifier states are the system's.
class PopUpKeys
{
public:
    /// The modifiers of the keyboard.
    struct Modifiers
    {
        std::function<quint16(quint8 keyCode)> bitsOfKey; ///< 0 for a key that is no modifier
        quint16 ofMenus = 0;                              ///< those that a menu goes by: no locks
    };

    enum class Way {
        Nowhere,      ///< down since the start, or a repeat of that
        ToAlternates, ///< a modifier: the menu may show others
        ToMenu,
    };

    PopUpKeys() = default;
    /// `down`: the keys that are down at the start.
    PopUpKeys(Modifiers modifiers, const QList<quint8>& down);

    /// A key was pressed, or repeats.
    [[nodiscard]] Way press(quint8 keyCode, quint32 time);
    /// A release was reported, perhaps that of a repeat.
    void release(quint8 keyCode, quint32 time);
    /// The key is up for certain.
    void up(quint8 keyCode);

    /// A modifier state without what the keys mean that are down since the start.
    [[nodiscard]] quint16 pressedSinceStart(quint16 state) const;
    /// What the modifier keys mean that were pressed since the start and are down: for whoever has no other
    /// modifier state.
    [[nodiscard]] quint16 modifiersDown() const;

private:
    Modifiers _modifiers;
    HeldKeys _held;
    QSet<quint8> _modifiersDown;
};

} // namespace tarnwick
