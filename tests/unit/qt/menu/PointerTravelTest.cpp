// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PointerTravel.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(PointerTravel, aHandThatTrembles_hasNotMovedIt)
{
    PointerTravel pointer(QPoint(100, 100));
    EXPECT_FALSE(pointer.follow(QPoint(100, 100)));
    EXPECT_FALSE(pointer.follow(QPoint(106, 104)));
    EXPECT_FALSE(pointer.enter(QPoint(106, 104)));
}

TEST(PointerTravel, whatHasMoved_hasMoved_alsoBackToWhereItWas)
{
    PointerTravel pointer(QPoint(100, 100));
    EXPECT_TRUE(pointer.follow(QPoint(107, 104)));
    EXPECT_TRUE(pointer.follow(QPoint(100, 100)));
}

TEST(PointerTravel, aWindowThatComesUnderIt_isNoMotion)
{
    PointerTravel pointer(QPoint(100, 100));
    EXPECT_TRUE(pointer.enter(QPoint(150, 100)));
    EXPECT_FALSE(pointer.enter(QPoint(150, 101))) << "rounded in another way";
    EXPECT_TRUE(pointer.enter(QPoint(180, 100)));
    EXPECT_TRUE(pointer.follow(QPoint(180, 100)));
}

} // namespace
} // namespace tarnwick
