// SPDX-License-Identifier: MIT
#include "shortcut/CurrentLayout.h"

#include "shortcut/KeyboardLayout.h"

namespace tarnwick {

std::optional<QString> unitForKeyOnCurrentLayout(quint16 keyCode, quint32 modifierKeyState)
{
    constexpr quint16 KeyActionDisplay = 3;
    const KeyboardLayout& keyboard = KeyboardLayout::shared();
    const auto layout = keyboard.copyCurrentKeyboardInputSource();
    if (!layout)
        return std::nullopt;
    quint32 deadKeyState = 0;
    auto units = layout->keyTranslate(keyCode, KeyActionDisplay, modifierKeyState, keyboard.keyboardType(), 0,
                                      deadKeyState);
    if (units)
        units->truncate(1);
    return units;
}

} // namespace tarnwick
