// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11ModifierMap.h"

#include "foundation/Event.h"
#include "platform/linux/keys/XkbKeymap.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr quint16 RealModifierBits = 0xFF;

struct Correspondence
{
    quint32 eventModifier;
    quint16 bit;
};

} // namespace

X11ModifierMap::X11ModifierMap(KeyCodesOfBits keyCodesOfBits, const KeysymsOf& keysymsOf)
    : _keyCodesOfBits(std::move(keyCodesOfBits))
{
    for (std::size_t index = 0; index < _keyCodesOfBits.size(); ++index) {
        const auto bit = static_cast<quint16>(1U << index);
        for (const quint8 keyCode : _keyCodesOfBits[index]) {
            const QList<quint32> keysyms = keysymsOf(keyCode);
            const auto has = [&](quint32 keysym) { return keysyms.contains(keysym); };
            if (has(XKB_KEY_Num_Lock))
                _numLock |= bit;
            if (has(XKB_KEY_Scroll_Lock))
                _scrollLock |= bit;
            // One bit is enough to mean the key; the lowest one is what toolkits read, too.
            if (_alt == 0 && (has(XKB_KEY_Alt_L) || has(XKB_KEY_Alt_R)))
                _alt = bit;
            if (_super == 0 && (has(XKB_KEY_Super_L) || has(XKB_KEY_Super_R)))
                _super = bit;
        }
    }
}

X11ModifierMap X11ModifierMap::read(X11Connection& connection, const XkbKeymap& keymap)
{
    XcbAnswer<&xcb_get_modifier_mapping_reply> asked(connection, xcb_get_modifier_mapping(connection.get()));
    const auto modifiers = asked.take();
    if (!modifiers)
        return {};

    KeyCodesOfBits keyCodesOfBits;
    const auto* keyCodes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    for (auto& ofBit : keyCodesOfBits) {
        std::copy_if(keyCodes, keyCodes + modifiers->keycodes_per_modifier, std::back_inserter(ofBit),
                     [](quint8 keyCode) { return keyCode != 0; });
        keyCodes += modifiers->keycodes_per_modifier;
    }
    return X11ModifierMap(std::move(keyCodesOfBits),
                          [&keymap](quint8 keyCode) { return keymap.keysymsOf(keyCode); });
}

QList<quint16> X11ModifierMap::lockCombinations() const
{
    QList<quint16> combinations{0};
    for (const quint16 lock : {CapsLockBit, _numLock, _scrollLock}) {
        const QList<quint16> without = combinations;
        for (const quint16 combination : without) {
            const auto with = static_cast<quint16>(combination | lock);
            if (!combinations.contains(with))
                combinations.append(with);
        }
    }
    return combinations;
}

quint16 X11ModifierMap::withoutLocks(quint16 state) const
{
    return state & RealModifierBits & static_cast<quint16>(~(CapsLockBit | _numLock | _scrollLock));
}

std::optional<quint16> X11ModifierMap::bitsOfEventModifiers(quint32 eventModifiers) const
{
    const Correspondence correspondences[] = {
        {0x100, _super}, {0x200, ShiftBit}, {0x800, _alt}, {0x1000, ControlBit}};
    quint16 bits = 0;
    for (const auto& [eventModifier, bit] : correspondences) {
        if (!(eventModifiers & eventModifier))
            continue;
        if (bit == 0)
            return std::nullopt;
        bits |= bit;
    }
    return bits;
}

quint64 X11ModifierMap::menuModifierFlags(quint16 state) const
{
    quint64 flags = 0;
    if (state & ShiftBit)
        flags |= ShiftKeyMask;
    if (state & ControlBit)
        flags |= CommandKeyMask;
    if (state & _alt)
        flags |= AlternateKeyMask;
    if (state & _super)
        flags |= ControlKeyMask;
    return flags;
}

quint16 X11ModifierMap::bitsOfKey(quint8 keyCode) const
{
    quint16 bits = 0;
    for (std::size_t index = 0; index < _keyCodesOfBits.size(); ++index)
        if (_keyCodesOfBits[index].contains(keyCode))
            bits |= static_cast<quint16>(1U << index);
    return bits;
}

} // namespace tarnwick
