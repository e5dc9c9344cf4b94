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

    /// Which key a program means by "<Meta>": for GTK it is one with Alt, others call the logo key so.
    enum class Meta { IsAlt, IsSuper };
    /// An accelerator as GTK writes it: "<Primary><Shift>s". Nothing when it has another modifier, or no key.
    [[nodiscard]] static std::optional<KeyBinding> parseAccelerator(const QString& text,
                                                                    Meta meta = Meta::IsAlt);

    friend bool operator==(const KeyBinding&, const KeyBinding&) = default;
};

} // namespace tarnwick
