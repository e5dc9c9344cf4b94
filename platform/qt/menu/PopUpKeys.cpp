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
    return _modifiers.bitsOfKey(keyCode) != 0 ? Way::ToAlternates : Way::ToMenu;
}

void PopUpKeys::release(quint8 keyCode, quint32 time)
{
    // Modifiers do not repeat.
    if (_modifiers.bitsOfKey(keyCode) != 0)
        _held.up(keyCode);
    else
        _held.released(keyCode, time);
}

quint16 PopUpKeys::pressedSinceStart(quint16 state) const
{
    const auto held = _held.keys();
    for (const quint8 keyCode : held)
        state &= static_cast<quint16>(~(_modifiers.bitsOfKey(keyCode) & _modifiers.ofMenus));
    return state;
}

} // namespace tarnwick
