// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PopUpGeometry.h"

#include "platform/linux/x11/ScreenSpaces.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(PopUpPosition, isTheAskedCornerOrFlippedOrOnTheScreen)
{
    struct Row
    {
        const char* what;
        QPoint corner;
        QSize size;
        QPoint position;
    };
    const QRect screen(1000, 500, 800, 600);
    const Row rows[] = {
        {"fits", {1100, 600}, {200, 300}, {1100, 600}},
        {"fits exactly", {1600, 800}, {200, 300}, {1600, 800}},
        {"flips to the left", {1700, 600}, {200, 300}, {1500, 600}},
        {"flips upward", {1100, 900}, {200, 300}, {1100, 600}},
        {"flips both ways", {1799, 1099}, {200, 300}, {1599, 799}},
        {"does not fit on either side", {1300, 600}, {600, 300}, {1200, 600}},
        {"is higher than the screen", {1100, 700}, {200, 700}, {1100, 500}},
        {"begins off the screen", {990, 490}, {200, 300}, {1000, 500}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(popUpPosition(row.corner, row.size, screen), row.position) << row.what;
}

/// A primary monitor that is not at the origin, and one to its left at twice the density.
const QList<Monitor> monitors{{QRect(1600, 200, 1280, 800), 1}, {QRect(0, 0, 1600, 1200), 2}};

TEST(ScreenSpaces, theWindowSystemsOriginIsAtTheFirstMonitorsBottomLeft)
{
    EXPECT_EQ(windowSystemPoint({1600, 1000}, monitors), QPointF(0, 0));
    EXPECT_EQ(windowSystemPoint({1610, 990}, monitors), QPointF(10, 10));
    EXPECT_EQ(windowSystemPoint({0, 0}, monitors), QPointF(-1600, 1000));
    EXPECT_EQ(windowSystemFrame(monitors.at(0).pixels, monitors), QRectF(0, 0, 1280, 800));
    EXPECT_EQ(windowSystemFrame(monitors.at(1).pixels, monitors), QRectF(-1600, -200, 1600, 1200));
}

TEST(ScreenSpaces, theDisplaySystemsOriginIsAtTheFirstMonitorsTopLeft)
{
    EXPECT_EQ(displaySystemPoint({1600, 200}, monitors), QPointF(0, 0));
    EXPECT_EQ(displaySystemPoint({1610, 230}, monitors), QPointF(10, 30));
    EXPECT_EQ(displaySystemPoint({0, 0}, monitors), QPointF(-1600, -200));
    EXPECT_EQ(displaySystemPoint({7, 8}, {}), QPointF(7, 8));
}

TEST(ScreenSpaces, pixelsThereAndBack_areTheSame)
{
    for (const QPoint pixel : {QPoint(0, 0), QPoint(1600, 200), QPoint(2879, 999), QPoint(3, 1199)}) {
        EXPECT_EQ(pixelAt(windowSystemPoint(pixel, monitors), monitors), pixel);
        EXPECT_EQ(pixelAtDisplaySystemPoint(displaySystemPoint(pixel, monitors), monitors), pixel);
    }
}

TEST(ScreenSpaces, toolkitPoints_areScaledFromTheirMonitorsCorner)
{
    EXPECT_EQ(toolkitPoint({1700, 300}, monitors), QPoint(1700, 300));
    EXPECT_EQ(toolkitPoint({100, 300}, monitors), QPoint(50, 150));
    EXPECT_EQ(toolkitPoint({-20, 300}, monitors), QPoint(-10, 150)) << "off all monitors: the nearest one's";
    EXPECT_EQ(toolkitPoint({7, 8}, {}), QPoint(7, 8));
}

} // namespace
} // namespace tarnwick
