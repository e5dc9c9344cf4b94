// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/application/Look.h"
#include "tests/fuzz/Fuzzing.h"

namespace tarnwick {

/// What must hold of every font that a desktop names, whatever it writes.
inline void requireFont(const std::optional<QFont>& font)
{
    if (!font)
        return;
    require(!font->family().isEmpty() && font->family().isValidUtf16(), "a font has a family");
    const bool isUsual =
        font->pointSizeF() == QFont().pointSizeF() && font->pixelSize() == QFont().pixelSize();
    const double size = font->pointSizeF() < 0 ? font->pixelSize() : font->pointSizeF();
    require(isUsual || (size > 0 && size <= 200), "a font has a size that a text can be read in");
}

/// The same of a whole look.
inline void requireLook(const Look& look)
{
    requireFont(look.font);
    requireFont(look.menuFont);
    require(!look.paletteStandsIn || look.palette, "colours that stand in are there");
    if (!look.palette)
        return;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            require(look.palette->color(group, static_cast<QPalette::ColorRole>(role)).isValid(),
                    "a colour is one");
}

} // namespace tarnwick
