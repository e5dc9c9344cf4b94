// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Fonts.h"

#include <QString>

namespace tarnwick {

/// Fonts whose family tells what was asked for; a size of 0 or less gives the default size.
class FakeFonts final : public Fonts
{
public:
    double defaultSize = 13; ///< lever: points

    [[nodiscard]] QFont menuBarFontOfSize(double size) const override
    {
        return _font(QStringLiteral("Menu Bar"), size);
    }
    [[nodiscard]] QFont menuFontOfSize(double size) const override
    {
        return _font(QStringLiteral("Menu"), size);
    }
    [[nodiscard]] QFont systemFontOfSize(double size) const override
    {
        return _font(QStringLiteral("System"), size);
    }
    [[nodiscard]] double labelFontSize() const override { return 10; }
    [[nodiscard]] double smallSystemFontSize() const override { return 11; }

    [[nodiscard]] QFont convertFontToHaveTrait(const QFont& font, Trait trait) const override
    {
        QFont converted = font;
        if (trait == BoldTrait)
            converted.setBold(true);
        return converted;
    }

private:
    [[nodiscard]] QFont _font(const QString& family, double size) const
    {
        QFont font(family);
        font.setPointSizeF(size > 0 ? size : defaultSize);
        return font;
    }
};

} // namespace tarnwick
