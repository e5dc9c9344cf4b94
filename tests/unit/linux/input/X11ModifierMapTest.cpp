// SPDX-License-Identifier: MIT
#include "platform/linux/input/X11ModifierMap.h"

#include "foundation/Event.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <map>

namespace tarnwick {
namespace {

constexpr quint16 mod1 = 8;
constexpr quint16 mod2 = 16;
constexpr quint16 mod4 = 64;
constexpr quint16 mod5 = 128;

struct KeyOnModifier
{
    int modifier; ///< 0 Shift, 1 Lock, 2 Control, 3 Mod1 ... 7 Mod5
    quint8 keyCode;
    quint32 keysym;
};

X11ModifierMap mapWith(const QList<KeyOnModifier>& keys)
{
    X11ModifierMap::KeyCodesOfBits keyCodes;
    std::map<quint8, QList<quint32>> keysyms;
    for (const auto& key : keys) {
        keyCodes.at(static_cast<std::size_t>(key.modifier)).append(key.keyCode);
        keysyms[key.keyCode].append(key.keysym);
    }
    return X11ModifierMap(keyCodes, [keysyms](quint8 keyCode) {
        const auto found = keysyms.find(keyCode);
        return found == keysyms.end() ? QList<quint32>() : found->second;
    });
}

/// What most keyboards have.
X11ModifierMap usualMap()
{
    return mapWith({{0, 50, XKB_KEY_Shift_L},
                    {1, 66, XKB_KEY_Caps_Lock},
                    {2, 37, XKB_KEY_Control_L},
                    {3, 64, XKB_KEY_Alt_L},
                    {3, 205, XKB_KEY_Meta_L},
                    {4, 77, XKB_KEY_Num_Lock},
                    {6, 133, XKB_KEY_Super_L},
                    {7, 92, XKB_KEY_ISO_Level3_Shift}});
}

TEST(X11ModifierMap, superAndAlt_areFoundByTheirKeys)
{
    EXPECT_EQ(usualMap().altBit(), mod1);
    EXPECT_EQ(usualMap().superBit(), mod4);
    const auto other = mapWith({{5, 64, XKB_KEY_Alt_R}, {4, 133, XKB_KEY_Super_R}});
    EXPECT_EQ(other.altBit(), 32);
    EXPECT_EQ(other.superBit(), mod2);
}

TEST(X11ModifierMap, superOnTwoModifiers_isTheLowerOne)
{
    EXPECT_EQ(mapWith({{6, 133, XKB_KEY_Super_L}, {7, 134, XKB_KEY_Super_R}}).superBit(), mod4);
}

TEST(X11ModifierMap, lockCombinations_areAllSubsetsOfTheLocksThatExist)
{
    EXPECT_EQ(mapWith({}).lockCombinations(), (QList<quint16>{0, 2}));
    EXPECT_EQ(usualMap().lockCombinations(), (QList<quint16>{0, 2, mod2, 2 | mod2}));
    const auto withScrollLock = mapWith({{4, 77, XKB_KEY_Num_Lock}, {7, 78, XKB_KEY_Scroll_Lock}});
    EXPECT_EQ(withScrollLock.lockCombinations(),
              (QList<quint16>{0, 2, mod2, 2 | mod2, mod5, 2 | mod5, mod2 | mod5, 2 | mod2 | mod5}));
}

TEST(X11ModifierMap, locksOnOneModifier_makeNoCombinationTwice)
{
    const auto map = mapWith({{4, 77, XKB_KEY_Num_Lock}, {4, 78, XKB_KEY_Scroll_Lock}});
    EXPECT_EQ(map.lockCombinations(), (QList<quint16>{0, 2, mod2, 2 | mod2}));
}

TEST(X11ModifierMap, eventModifiers_areTheNamedKeys)
{
    struct Row
    {
        const char* what;
        quint32 eventModifiers;
        std::optional<quint16> bits;
    };
    const Row rows[] = {
        {"none", 0, 0},
        {"Command is Super", 0x100, mod4},
        {"Shift", 0x200, 1},
        {"Option is Alt", 0x800, mod1},
        {"Control", 0x1000, 4},
        {"Command-Control", 0x1100, mod4 | 4},
        {"all", 0x1B00, mod4 | 1 | mod1 | 4},
        {"other bits do not count", 0x800 | 0x400 | 0x20000, mod1},
    };
    for (const Row& row : rows)
        EXPECT_EQ(usualMap().bitsOfEventModifiers(row.eventModifiers), row.bits) << row.what;
}

TEST(X11ModifierMap, eventModifierWithoutAKey_isNothing)
{
    const auto map = mapWith({{3, 64, XKB_KEY_Alt_L}});
    EXPECT_EQ(map.bitsOfEventModifiers(0x100), std::nullopt);
    EXPECT_EQ(map.bitsOfEventModifiers(0x900), std::nullopt);
    EXPECT_EQ(map.bitsOfEventModifiers(0x800), mod1);
}

TEST(X11ModifierMap, withoutLocks_leavesTheOtherModifiersOnly)
{
    constexpr quint16 secondGroup = 1 << 13;
    constexpr quint16 firstButton = 1 << 8;
    EXPECT_EQ(usualMap().withoutLocks(mod1 | mod2 | 2 | firstButton | secondGroup), mod1);
    EXPECT_EQ(usualMap().withoutLocks(mod1 | mod5), mod1 | mod5);
}

TEST(X11ModifierMap, inAPopUp_controlMeansCommandAndSuperMeansControl)
{
    const auto map = usualMap();
    EXPECT_EQ(map.menuModifierFlags(0), 0U);
    EXPECT_EQ(map.menuModifierFlags(1), ShiftKeyMask);
    EXPECT_EQ(map.menuModifierFlags(4), CommandKeyMask);
    EXPECT_EQ(map.menuModifierFlags(mod1), AlternateKeyMask);
    EXPECT_EQ(map.menuModifierFlags(mod4), ControlKeyMask);
    EXPECT_EQ(map.menuModifierFlags(mod1 | 1 | mod2 | 2), AlternateKeyMask | ShiftKeyMask);
}

TEST(X11ModifierMap, menuModifierFlagsWithoutAnAltKey_doNotTakeNothingForAlt)
{
    EXPECT_EQ(mapWith({}).menuModifierFlags(mod1 | mod4), 0U);
}

TEST(X11ModifierMap, modifierKeys_areThoseInTheMap)
{
    const auto map = usualMap();
    for (const quint8 keyCode : {50, 66, 37, 64, 77, 133, 92})
        EXPECT_TRUE(map.isModifierKey(keyCode)) << int{keyCode};
    EXPECT_FALSE(map.isModifierKey(52));
    EXPECT_EQ(map.bitsOfKey(64), mod1);
    EXPECT_EQ(map.shortcutBits(), 4 | mod1 | mod4);
}

} // namespace
} // namespace tarnwick
