// SPDX-License-Identifier: MIT
#pragma once

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

    /// An accelerator as GTK writes it: "<Primary><Shift>s". Nothing when it has another modifier, or no key.
    [[nodiscard]] static std::optional<KeyBinding> parseAccelerator(const QString& text);

    friend bool operator==(const KeyBinding&, const KeyBinding&) = default;
};

} // namespace tarnwick
