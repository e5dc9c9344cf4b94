// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11HeldKeys.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(X11HeldKeys, aKeyThatIsNotHeld_isPressedAnew)
{
    X11HeldKeys keys;
    EXPECT_TRUE(keys.pressedAnew(52, 100));
    keys.released(52, 120);
    EXPECT_TRUE(keys.pressedAnew(52, 120)) << "releases of other keys are not remembered";
}

TEST(X11HeldKeys, aReleaseAndAPressOfOneTime_areARepeat)
{
    X11HeldKeys keys;
    keys.hold(52);
    for (const quint32 time : {700U, 725U, 750U}) {
        keys.released(52, time);
        EXPECT_FALSE(keys.pressedAnew(52, time));
        EXPECT_EQ(keys.keys(), QList<quint8>{52});
    }
}

TEST(X11HeldKeys, aPressLaterThanTheRelease_isNew)
{
    X11HeldKeys keys;
    keys.hold(52);
    keys.released(52, 700);
    EXPECT_TRUE(keys.pressedAnew(52, 701));
    EXPECT_TRUE(keys.keys().isEmpty());
}

TEST(X11HeldKeys, aPressWithoutARelease_isARepeatWhoseReleaseWentElsewhere)
{
    X11HeldKeys keys;
    keys.hold(52);
    EXPECT_FALSE(keys.pressedAnew(52, 700));
}

TEST(X11HeldKeys, aKeyThatIsUp_isPressedAnew)
{
    X11HeldKeys keys;
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
