// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tarnwick {

/// What the key at this place types on the layout that types now, alone or with Shift; empty for nothing.
using KeyTexts = std::function<QString(quint16 virtualKeyCode, bool shift)>;

/// What the program's keyboard layout says; nothing without one.
[[nodiscard]] QString textOfCurrentLayout(quint16 virtualKeyCode, bool shift);

/// The keys of a hot key by the names that they have elsewhere.
struct TriggerKey
{
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool super = false;
    quint16 code = 0;       ///< X key code of its place: evdev code + 8
    QString evdevName = {}; ///< of its place: "Z" for KEY_Z
    QString keysym = {};    ///< name of what it types alone, or does: "y", "minus", "Next"
    bool typesLatin = true; ///< false: `keysym` is what the place types on a keyboard of the United States
    bool isOnKeypad = false;
    int qtKey = 0; ///< with modifiers, as KDE takes it for a shortcut

    /// Virtual key code and event modifiers. Nothing for a key that has no such names.
    [[nodiscard]] static std::optional<TriggerKey> of(quint32 keyCode, quint32 modifiers,
                                                      const KeyTexts& texts);
};

} // namespace tarnwick
