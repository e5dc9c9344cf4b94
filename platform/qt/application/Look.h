// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPalette>

#include <optional>

namespace tarnwick {

/// How a desktop wants its programs to look and to move, as far as it says.
struct Look
{
    std::optional<QPalette> palette;
    bool paletteStandsIn = false; ///< the desktop has told light or dark only; the colours are our own
    std::optional<QFont> font;
    std::optional<QFont> menuFont; ///< where menus have another
    bool reducesMotion = false;
};

/// Whether its windows are darker than the text in them.
[[nodiscard]] bool isDark(const QPalette& palette);

/// Gives the running program what the toolkit has not found out by itself; the rest it leaves to the toolkit.
/// GUI thread only.
void applyLook(const Look& look);

} // namespace tarnwick
