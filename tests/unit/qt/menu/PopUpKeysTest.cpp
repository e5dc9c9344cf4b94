// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PopUpKeys.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

constexpr quint8 Alt = 64;
constexpr quint8 Shift = 50;
constexpr quint8 CapsLock = 66;
constexpr quint8 Z = 52;
constexpr quint8 Down = 116;

constexpr quint16 AltBit = 8;
constexpr quint16 ShiftBit = 1;
constexpr quint16 LockBit = 2;

using Way = PopUpKeys::Way;

PopUpKeys keysWith(const QList<quint8>& down)
{
    const auto bitsOfKey = [](quint8 keyCode) -> quint16 {
        if (keyCode == Alt)
            return AltBit;
        if (keyCode == Shift)
            return ShiftBit;
        return keyCode == CapsLock ? LockBit : 0;
    };
    return PopUpKeys({bitsOfKey, AltBit | ShiftBit}, down);
}

TEST(PopUpKeys, aPress_goesToTheMenu_andAModifierToTheAlternatesOnly)
{
    auto keys = keysWith({});
    EXPECT_EQ(keys.press(Down, 100), Way::ToMenu);
    EXPECT_EQ(keys.press(Down, 130), Way::ToMenu) << "repeats of it work the menu, too";
    EXPECT_EQ(keys.press(Alt, 200), Way::ToAlternates);
    EXPECT_EQ(keys.press(CapsLock, 300), Way::ToAlternates);
}

TEST(PopUpKeys, whatIsDownAtTheStart_goesNowhereUntilItIsPressedAnew)
{
    auto keys = keysWith({Alt, Z});
    keys.release(Z, 700);
    EXPECT_EQ(keys.press(Z, 700), Way::Nowhere) << "a repeat";
    keys.release(Z, 725);
    EXPECT_EQ(keys.press(Z, 900), Way::ToMenu);
    EXPECT_EQ(keys.press(Alt, 910), Way::Nowhere);
}

TEST(PopUpKeys, aReleaseOfAModifier_isNoRepeat)
{
    auto keys = keysWith({Alt});
    keys.release(Alt, 700);
    EXPECT_EQ(keys.press(Alt, 700), Way::ToAlternates);
}

TEST(PopUpKeys, aKeyThatIsUpForCertain_isHeldNoLonger)
{
    auto keys = keysWith({Z});
    keys.up(Z);
    EXPECT_EQ(keys.press(Z, 700), Way::ToMenu);
}

TEST(PopUpKeys, modifiersThatAreDownSinceTheStart_doNotCountUntilTheyAreUp)
{
    auto keys = keysWith({Alt, CapsLock});
    EXPECT_EQ(keys.pressedSinceStart(AltBit | ShiftBit), ShiftBit);
    EXPECT_EQ(keys.pressedSinceStart(LockBit), LockBit) << "a lock stays what it is";
    keys.release(Alt, 700);
    EXPECT_EQ(keys.pressedSinceStart(AltBit | ShiftBit), AltBit | ShiftBit);
}

TEST(PopUpKeys, modifiersThatWerePressedSinceTheStart_areDownUntilTheyAreUp)
{
    auto keys = keysWith({Alt});
    keys.release(Alt, 600);
    EXPECT_EQ(keys.modifiersDown(), 0);
    EXPECT_EQ(keys.press(Alt, 700), Way::ToAlternates);
    EXPECT_EQ(keys.press(Shift, 710), Way::ToAlternates);
    EXPECT_EQ(keys.press(CapsLock, 720), Way::ToAlternates);
    EXPECT_EQ(keys.modifiersDown(), AltBit | ShiftBit) << "menus do not go by locks";
    keys.release(Alt, 800);
    keys.up(Shift);
    EXPECT_EQ(keys.modifiersDown(), 0);
}

} // namespace
} // namespace tarnwick
