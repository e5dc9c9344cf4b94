// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/menus/AtspiToolkit.h"

#include <QString>
#include <xkbcommon/xkbcommon.h>

#include <optional>

namespace tarnwick {

/// One key with the modifiers of the keyboard as they are.
struct KeyBinding
{
    bool control = false;
    bool alt = false;
    bool shift = false;
    bool super = false;
    xkb_keysym_t key = XKB_KEY_NoSymbol;

    /// What a toolkit publishes as the key binding of the item named `name`. Nothing when the item has no
    /// shortcut, only a mnemonic, or one that is more than one key.
    [[nodiscard]] static std::optional<KeyBinding> parse(const QString& text, const QString& name,
                                                         AtspiToolkit toolkit);

    /// An accelerator as GTK writes it: "<Primary><Shift>s".
    [[nodiscard]] static std::optional<KeyBinding> parseAccelerator(const QString& text);

    friend bool operator==(const KeyBinding&, const KeyBinding&) = default;
};

} // namespace tarnwick
