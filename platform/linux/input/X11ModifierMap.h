// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/XcbAnswer.h"

#include <QList>

#include <array>
#include <functional>
#include <optional>

namespace tarnwick {

class XkbKeymap;

/// Which bits of the core modifier state belong to which keys, as the server's modifier map has it now. A
/// bit of 0 means that no key has that modifier. Plain data.
class X11ModifierMap
{
public:
    static constexpr quint16 ShiftBit = 1;
    static constexpr quint16 CapsLockBit = 2;
    static constexpr quint16 ControlBit = 4;

    using KeyCodesOfBits = std::array<QList<quint8>, 8>; ///< of Shift, Lock, Control, Mod1 ... Mod5
    using KeysymsOf = std::function<QList<quint32>(quint8 keyCode)>;

    X11ModifierMap() = default;
    X11ModifierMap(KeyCodesOfBits keyCodesOfBits, const KeysymsOf& keysymsOf);

    /// The server's, whose keys give what `keymap` says; without any key when the server refuses. One round
    /// trip.
    [[nodiscard]] static X11ModifierMap read(X11Connection& connection, const XkbKeymap& keymap);

    [[nodiscard]] quint16 altBit() const { return _alt; }
    [[nodiscard]] quint16 superBit() const { return _super; }

    /// Every combination of the lock keys' bits, the empty one first: a key is to be grabbed with each.
    [[nodiscard]] QList<quint16> lockCombinations() const;
    /// `state` without locks, pointer buttons and keyboard group.
    [[nodiscard]] quint16 withoutLocks(quint16 state) const;

    /// The bits of the keys that hot keys mean by these event modifiers (0x100 Command is Super, 0x200 Shift,
    /// 0x800 Option is Alt, 0x1000 Control). Nothing when the keyboard lacks one of them.
    [[nodiscard]] std::optional<quint16> bitsOfEventModifiers(quint32 eventModifiers) const;

    /// The modifier flags that a pop-up means by the keys held in `state`: Control is Command there, Alt is
    /// Option, Super is Control.
    [[nodiscard]] quint64 menuModifierFlags(quint16 state) const;

    /// Whether the key is a modifier or a lock key.
    [[nodiscard]] bool isModifierKey(quint8 keyCode) const { return bitsOfKey(keyCode) != 0; }
    [[nodiscard]] quint16 bitsOfKey(quint8 keyCode) const;
    /// The bits of the modifiers that window managers' shortcuts are made with: Control, Alt and Super.
    [[nodiscard]] quint16 shortcutBits() const { return ControlBit | _alt | _super; }

    friend bool operator==(const X11ModifierMap&, const X11ModifierMap&) = default;

private:
    KeyCodesOfBits _keyCodesOfBits;
    quint16 _alt = 0;
    quint16 _super = 0;
    quint16 _numLock = 0;
    quint16 _scrollLock = 0;
};

} // namespace tarnwick
