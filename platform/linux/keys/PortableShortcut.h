// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <xkbcommon/xkbcommon.h>

#include <optional>

namespace tarnwick {

/// A key with modifiers as Qt, and KDE with it, writes it down in every language: "Meta+Ctrl+T".
struct PortableShortcut
{
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool super = false;                     ///< what Qt calls Meta
    xkb_keysym_t keysym = XKB_KEY_NoSymbol; ///< of a letter the small one

    /// Nothing for other texts and for more than one key after another.
    [[nodiscard]] static std::optional<PortableShortcut> parse(const QString& text);

    friend bool operator==(const PortableShortcut&, const PortableShortcut&) = default;
};

} // namespace tarnwick
