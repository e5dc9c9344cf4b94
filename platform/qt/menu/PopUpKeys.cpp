// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PopUpKeys.h"

#include <utility>

namespace tarnwick {

PopUpKeys::PopUpKeys(Modifiers modifiers, const QList<quint8>& down) : _modifiers(std::move(modifiers))
{
    for (const quint8 keyCode : down)
        _held.hold(keyCode);
}

PopUpKeys::Way PopUpKeys::press(quint8 keyCode, quint32 time)
{
    if (!_held.pressedAnew(keyCode, time))
        return Way::Nowhere;
    if (_modifiers.bitsOfKey(keyCode) == 0)
        return Way::ToMenu;
    _modifiersDown.insert(keyCode);
    return Way::ToAlternates;
}

void PopUpKeys::release(quint8 keyCode, quint32 time)
{
    // Modifiers do not repeat.
    if (_modifiers.bitsOfKey(keyCode) != 0)
        up(keyCode);
    else
        _held.released(keyCode, time);
}

void PopUpKeys::up(quint8 keyCode)
{
    _held.up(keyCode);
    _modifiersDown.remove(keyCode);
}

quint16 PopUpKeys::pressedSinceStart(quint16 state) const
{
    const auto held = _held.keys();
    for (const quint8 keyCode : held)
        state &= static_cast<quint16>(~(_modifiers.bitsOfKey(keyCode) & _modifiers.ofMenus));
    return state;
}

quint16 PopUpKeys::modifiersDown() const
{
    quint16 state = 0;
    for (const quint8 keyCode : _modifiersDown)
        state |= static_cast<quint16>(_modifiers.bitsOfKey(keyCode) & _modifiers.ofMenus);
    return state;
}

} // namespace tarnwick
