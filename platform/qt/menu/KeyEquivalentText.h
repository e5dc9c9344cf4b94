// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <Qt>

namespace tarnwick {

/// A menu item's shortcut as the desktop writes shortcuts in menus: "Ctrl+Shift+S", "Alt+Left", "F5". In the
/// mask (ModifierFlag bits) Command is Ctrl, Option Alt, Control Super. Empty without a key equivalent, and
/// for one of the platform's function-key characters that no key of this desktop has.
[[nodiscard]] QString keyEquivalentText(const QString& keyEquivalent, quint64 modifierMask);

/// A key in the user's language, as it is written in shortcuts: "Return", "PgDown".
[[nodiscard]] QString nameOfKey(Qt::Key key);

/// What stands before a key that is pressed with these, in the desktop's order: "Ctrl+Alt+". Empty without
/// any.
[[nodiscard]] QString namesOfModifiers(bool super, bool control, bool alt, bool shift);

} // namespace tarnwick
