// SPDX-License-Identifier: MIT
#include "platform/qt/menu/HeldKeys.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(HeldKeys, aKeyThatIsNotHeld_isPressedAnew)
{
    HeldKeys keys;
    EXPECT_TRUE(keys.pressedAnew(52, 100));
    keys.released(52, 120);
    EXPECT_TRUE(keys.pressedAnew(52, 120)) << "releases of other keys are not remembered";
}

TEST(HeldKeys, aReleaseAndAPressOfOneTime_areARepeat)
{
    HeldKeys keys;
    keys.hold(52);
    for (const quint32 time : {700U, 725U, 750U}) {
        keys.released(52, time);
        EXPECT_FALSE(keys.pressedAnew(52, time));
        EXPECT_EQ(keys.keys(), QList<quint8>{52});
    }
}

TEST(HeldKeys, aPressLaterThanTheRelease_isNew)
{
    HeldKeys keys;
    keys.hold(52);
    keys.released(52, 700);
    EXPECT_TRUE(keys.pressedAnew(52, 701));
    EXPECT_TRUE(keys.keys().isEmpty());
}

TEST(HeldKeys, aPressWithoutARelease_isARepeatWhoseReleaseWentElsewhere)
{
    HeldKeys keys;
    keys.hold(52);
    EXPECT_FALSE(keys.pressedAnew(52, 700));
}

TEST(HeldKeys, aKeyThatIsUp_isPressedAnew)
{
    HeldKeys keys;
    keys.hold(52);
    keys.hold(64);
    keys.up(52);
    EXPECT_TRUE(keys.pressedAnew(52, 700));
    EXPECT_FALSE(keys.pressedAnew(64, 700));
    keys.forgetAll();
    EXPECT_TRUE(keys.pressedAnew(64, 700));
}

} // namespace
} // namespace tarnwick
