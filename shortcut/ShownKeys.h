// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyCombo.h"

#include <QString>
#include <QStringList>

namespace tarnwick {

// What people read and hear of a combination: the desktop's names of keys where it has some, else glyphs and
// translated words. Flags are Cocoa flags. What is stored never comes from here. GUI thread only.

/// Modifiers that are held: "⌃⌥", "Ctrl+Alt+". Empty without one.
[[nodiscard]] QString shownModifiers(quint64 flags);

/// By itself, in a field or a title: "⌥Z", "Alt+Z".
[[nodiscard]] QString shownKeyCombo(const KeyCombo& keyCombo);

/// Within a sentence: "Option + Z", "Alt+Z".
[[nodiscard]] QString readableKeyCombo(const KeyCombo& keyCombo);

/// To be spoken: "Option Z", "Alt+Z". Keys that are shown as glyphs have a name here.
[[nodiscard]] QString spokenKeyCombo(const KeyCombo& keyCombo);

/// The combinations that a field has to have room for: each key that has a name, with all modifiers.
[[nodiscard]] QStringList longestKeyCombos();

} // namespace tarnwick
