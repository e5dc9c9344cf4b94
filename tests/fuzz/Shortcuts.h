// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/DesktopShortcut.h"
#include "tests/fuzz/Fuzzing.h"

namespace tarnwick {

/// What holds of every shortcut of a desktop that has been read.
inline void requireShortcuts(const QList<DesktopShortcut>& shortcuts)
{
    constexpr quint32 LargestKeysym = 0x1fffffff;
    constexpr quint32 Modifiers = 0x100 | 0x200 | 0x800 | 0x1000;
    for (const DesktopShortcut& shortcut : shortcuts) {
        require((shortcut.keysym != 0) != (shortcut.keyCode != 0),
                "a key is named by what it types or by its place");
        require(shortcut.keysym <= LargestKeysym, "a keysym is one");
        require((shortcut.modifiers & ~Modifiers) == 0, "the modifiers are ones that a hot key can have");
    }
}

} // namespace tarnwick
