// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyCombo.h"

#include <QString>

namespace tarnwick {

/// The combination in translated words that can be spoken, "Option Z"; keys that are shown as glyphs have a
/// name here. `keyCombo` holds Cocoa flags.
[[nodiscard]] QString spokenKeyCombo(const KeyCombo& keyCombo);

} // namespace tarnwick
