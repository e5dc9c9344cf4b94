// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// A menu item's shortcut as the desktop writes shortcuts in menus: "Ctrl+Shift+S", "Alt+Left", "F5". In the
/// mask (ModifierFlag bits) Command is Ctrl, Option Alt, Control Super. Empty without a key equivalent, and
/// for one of the platform's function-key characters that no key of this desktop has.
[[nodiscard]] QString keyEquivalentText(const QString& keyEquivalent, quint64 modifierMask);

} // namespace tarnwick
