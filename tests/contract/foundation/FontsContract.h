// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Fonts.h"

#include <QFontInfo>
#include <gtest/gtest.h>

#include <functional>

namespace tarnwick {

/// What the core relies on of the desktop's fonts.
inline void fontsContract(const Fonts& fonts)
{
    struct Row
    {
        const char* name;
        std::function<QFont(double)> ofSize;
    };
    const Row rows[] = {
        {"of menu bars", [&](double size) { return fonts.menuBarFontOfSize(size); }},
        {"of menus", [&](double size) { return fonts.menuFontOfSize(size); }},
        {"of the system", [&](double size) { return fonts.systemFontOfSize(size); }},
    };
    for (const Row& row : rows) {
        for (const double size : {1.0, 11.0, 13.5, 200.0})
            EXPECT_EQ(row.ofSize(size).pointSizeF(), size) << row.name << ", in points";
        const QFont usual = row.ofSize(0);
        EXPECT_GT(QFontInfo(usual).pointSizeF(), 0) << row.name;
        EXPECT_EQ(row.ofSize(-1), usual) << row.name << ": no size is the usual one";
        EXPECT_EQ(row.ofSize(-56), usual) << row.name;
        EXPECT_EQ(row.ofSize(17).family(), usual.family()) << row.name << ": it differs in its size only";
    }
    EXPECT_GT(fonts.labelFontSize(), 0);
    EXPECT_GT(fonts.smallSystemFontSize(), 0);

    QFont font = fonts.menuFontOfSize(17);
    font.setItalic(true);
    font.setUnderline(true);
    const QFont bold = fonts.convertFontToHaveTrait(font, Fonts::BoldTrait);
    EXPECT_TRUE(bold.bold());
    EXPECT_TRUE(bold.italic());
    EXPECT_TRUE(bold.underline());
    EXPECT_EQ(bold.family(), font.family());
    EXPECT_EQ(bold.pointSizeF(), 17);
    EXPECT_EQ(fonts.convertFontToHaveTrait(bold, Fonts::BoldTrait), bold) << "what is bold stays so";
    EXPECT_FALSE(font.bold()) << "the given one is left alone";
}

} // namespace tarnwick
