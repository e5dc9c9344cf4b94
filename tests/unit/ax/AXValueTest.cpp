// SPDX-License-Identifier: MIT
#include "ax/AXValue.h"

#include <gtest/gtest.h>

using namespace tarnwick;

TEST(AXValue, types_areNumberedAsThePlatformNumbersThem)
{
    EXPECT_EQ(static_cast<int>(AXValue().type()), 0);
    EXPECT_EQ(static_cast<int>(AXValue(QPointF(1, 2)).type()), 1);
    EXPECT_EQ(static_cast<int>(AXValue(QSizeF(1, 2)).type()), 2);
    EXPECT_EQ(static_cast<int>(AXValue(QRectF(1, 2, 3, 4)).type()), 3);
    EXPECT_EQ(static_cast<int>(AXValue(AXRange{1, 2}).type()), 4);
}

TEST(AXValue, get_ofAnotherType_givesNothing)
{
    const AXValue point(QPointF(1, 2));
    ASSERT_NE(point.get<QPointF>(), nullptr);
    EXPECT_EQ(*point.get<QPointF>(), QPointF(1, 2));
    EXPECT_EQ(point.get<QSizeF>(), nullptr);
}
