// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Fonts.h"

namespace tarnwick {

/// The fonts of the desktop's theme, as Qt knows them.
class QtFonts final : public Fonts
{
public:
    [[nodiscard]] QFont menuBarFontOfSize(double size) const override;
    [[nodiscard]] QFont menuFontOfSize(double size) const override;
    [[nodiscard]] QFont systemFontOfSize(double size) const override;
    [[nodiscard]] double labelFontSize() const override;
    [[nodiscard]] double smallSystemFontSize() const override;
    [[nodiscard]] QFont convertFontToHaveTrait(const QFont& font, Trait trait) const override;
};

} // namespace tarnwick
