// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtFonts.h"

#include "platform/qt/application/Look.h"

#include <QApplication>
#include <QFontInfo>
#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

TEST(QtFonts, size_isInPoints_andNoSizeIsTheDesktops)
{
    const QtFonts fonts;
    EXPECT_EQ(fonts.menuBarFontOfSize(11).pointSizeF(), 11);
    EXPECT_EQ(fonts.menuFontOfSize(13.5).pointSizeF(), 13.5);
    EXPECT_EQ(fonts.systemFontOfSize(9).pointSizeF(), 9);
    EXPECT_EQ(fonts.menuBarFontOfSize(0), QApplication::font("QMenuBar"));
    EXPECT_EQ(fonts.menuFontOfSize(-56), QApplication::font("QMenu"));
    EXPECT_EQ(fonts.systemFontOfSize(0), QApplication::font());
}

TEST(QtFonts, smallSizes_goWithTheDesktopsText)
{
    const QtFonts fonts;
    const double text = QFontInfo(QApplication::font()).pointSizeF();
    EXPECT_GT(fonts.labelFontSize(), 0);
    EXPECT_LT(fonts.labelFontSize(), fonts.smallSystemFontSize());
    EXPECT_LT(fonts.smallSystemFontSize(), text);
}

TEST(QtFonts, bold_keepsEverythingElse)
{
    const QtFonts fonts;
    QFont font = fonts.menuBarFontOfSize(17);
    font.setItalic(true);
    const QFont bold = fonts.convertFontToHaveTrait(font, Fonts::BoldTrait);
    EXPECT_TRUE(bold.bold());
    EXPECT_TRUE(bold.italic());
    EXPECT_EQ(bold.family(), font.family());
    EXPECT_EQ(bold.pointSizeF(), 17);
}

TEST(Look, fontOfMenus_isTheDesktops_ofBarsToo)
{
    Look look;
    look.menuFont = QApplication::font();
    look.menuFont->setPointSizeF(QApplication::font().pointSizeF() + 7);
    applyLook(look);
    for (const char* menu : {"QMenu", "QMenuBar"}) {
        EXPECT_EQ(QApplication::font(menu).pointSizeF(), look.menuFont->pointSizeF()) << menu;
        QApplication::setFont(QApplication::font(), menu);
    }
}

} // namespace
