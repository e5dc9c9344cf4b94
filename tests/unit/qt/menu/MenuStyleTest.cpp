// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuStyle.h"

#include <QStyleOption>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

class RecordingStyle final : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement /*element*/, const QStyleOption* option, QPainter* /*painter*/,
                       const QWidget* /*widget*/) const override
    {
        drawnWith.append(option->palette);
    }

    mutable QList<QPalette> drawnWith;
};

QPalette paletteWithText(const QColor& colour)
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, colour);
    return palette;
}

class MenuStyleTest : public testing::Test
{
protected:
    void drawArrow(const QPalette& palette)
    {
        QStyleOption option;
        option.palette = palette;
        style.drawPrimitive(QStyle::PE_IndicatorArrowRight, &option, nullptr, nullptr);
    }

    RecordingStyle* recorded = new RecordingStyle;
    MenuStyle style{recorded};
};

} // namespace

TEST_F(MenuStyleTest, arrowsOfTheSameColours_areDrawnWithOnePalette)
{
    const QPalette first = paletteWithText(Qt::red);
    const QPalette second = paletteWithText(Qt::red);
    ASSERT_NE(first.cacheKey(), second.cacheKey());
    drawArrow(first);
    drawArrow(second);
    ASSERT_EQ(recorded->drawnWith.size(), 2);
    EXPECT_EQ(recorded->drawnWith[0].cacheKey(), recorded->drawnWith[1].cacheKey());
}

TEST_F(MenuStyleTest, menuThatIsLongerThanTheScreen_scrolls)
{
    EXPECT_EQ(MenuStyle().styleHint(QStyle::SH_Menu_Scrollable, nullptr, nullptr, nullptr), 1);
}

TEST_F(MenuStyleTest, eachArrowKeepsItsColours_alsoAfterManyOthers)
{
    QList<QPalette> palettes;
    for (int red = 0; red < 20; ++red)
        palettes.append(paletteWithText(QColor(red, 0, 0)));
    palettes.append(paletteWithText(QColor(0, 0, 0)));
    for (const QPalette& palette : palettes)
        drawArrow(palette);
    EXPECT_EQ(recorded->drawnWith, palettes);
}

} // namespace tarnwick
