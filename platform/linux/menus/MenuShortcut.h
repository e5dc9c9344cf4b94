// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/menus/KeyBinding.h"

#include <QString>

#include <optional>

namespace tarnwick {

/// A menu item's shortcut in the numbers of the platform's accessibility attributes: Control stands as
/// Command, Super as Control.
struct MenuShortcut
{
    QString character;        ///< "AXMenuItemCmdChar", empty when the key has a glyph
    std::optional<int> glyph; ///< "AXMenuItemCmdGlyph"
    int modifiers = 0;        ///< "AXMenuItemCmdModifiers": 1 Shift, 2 Option, 4 Control, 8 no Command

    /// Nothing where these numbers would show another shortcut than the binding, or none.
    [[nodiscard]] static std::optional<MenuShortcut> of(const KeyBinding& binding);

    friend bool operator==(const MenuShortcut&, const MenuShortcut&) = default;
};

} // namespace tarnwick
