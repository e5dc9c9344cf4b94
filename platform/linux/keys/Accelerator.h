// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace tarnwick {

/// A key with modifiers as GTK, and the desktops made with it, write it down: "<Primary><Alt>t".
struct Accelerator
{
    bool control = false;
    bool shift = false;
    bool alt = false;
    bool super = false;
    bool meta = false; ///< for GTK and GNOME one with Alt: a keyboard's Meta is on the Alt keys
    QString key = {};  ///< what stands behind the modifiers; how it is read is up to the caller

    /// Nothing where a bracket does not close, and for modifiers that are not on every keyboard ("<Hyper>",
    /// "<Mod3>").
    [[nodiscard]] static std::optional<Accelerator> parse(const QString& text);

    friend bool operator==(const Accelerator&, const Accelerator&) = default;
};

} // namespace tarnwick
