// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"

#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class CarbonSymbolicHotKeysTest : public MacTest
{
protected:
    CarbonSymbolicHotKeys hotKeys;

    [[nodiscard]] SymbolicHotKey only()
    {
        const auto all = hotKeys.copySymbolicHotKeys(0, 0);
        EXPECT_TRUE(all && all->size() == 1);
        return all && all->size() == 1 ? all->first() : SymbolicHotKey();
    }
};

TEST_F(CarbonSymbolicHotKeysTest, list_keepsItsOrderAndIsReadAfresh)
{
    mac.systemHotKeys = {{true, 49, 0x100}, {false, 48, 0x1000}};
    auto all = hotKeys.copySymbolicHotKeys(0, 0);
    ASSERT_TRUE(all);
    ASSERT_EQ(all->size(), 2);
    EXPECT_TRUE(all->at(0).enabled);
    EXPECT_EQ(all->at(0).code, 49);
    EXPECT_EQ(all->at(0).modifiers, 0x100);
    EXPECT_FALSE(all->at(1).enabled);
    EXPECT_EQ(all->at(1).code, 48);
    EXPECT_EQ(all->at(1).modifiers, 0x1000);

    mac.systemHotKeys = {{true, 20, 0x300}};
    EXPECT_EQ(only().code, 20);
}

TEST_F(CarbonSymbolicHotKeysTest, onlyTheBooleanTrue_countsAsEnabled)
{
    struct Row
    {
        const char* value;
        QVariant enabled;
        bool expected;
    };
    const Row rows[] = {
        {"the boolean true", true, true}, {"the boolean false", false, false}, {"the number 1", 1, false},
        {"a text", u"true"_s, false},     {"nothing", QVariant(), false},
    };
    for (const Row& row : rows) {
        mac.systemHotKeys = {{row.enabled, 49, 0x100}};
        EXPECT_EQ(only().enabled, row.expected) << row.value;
    }
}

TEST_F(CarbonSymbolicHotKeysTest, code_isReadInSixteenBitsAndModifiersIn32)
{
    mac.systemHotKeys = {{true, 65535, 0x80000100ll}};
    EXPECT_EQ(only().code, -1);
    EXPECT_EQ(only().modifiers, static_cast<qint32>(0x80000100));
    mac.systemHotKeys = {{true, QVariant(), QVariant()}};
    EXPECT_EQ(only().code, 0);
    EXPECT_EQ(only().modifiers, 0);
    mac.systemHotKeys = {{true, u"49"_s, u"256"_s}};
    EXPECT_EQ(only().code, 0);
    EXPECT_EQ(only().modifiers, 0);
}

TEST_F(CarbonSymbolicHotKeysTest, listThatCannotBeRead_isNothing_andAnEmptyOneIsEmpty)
{
    EXPECT_TRUE(hotKeys.copySymbolicHotKeys(0, 0));
    EXPECT_TRUE(hotKeys.copySymbolicHotKeys(0, 0)->isEmpty());
    mac.fail(u"CopySymbolicHotKeys"_s, -50);
    EXPECT_FALSE(hotKeys.copySymbolicHotKeys(0, 0));
}

TEST_F(CarbonSymbolicHotKeysTest, mode_isPushedWithItsOptionAndPoppedWithItsToken)
{
    const auto token = hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    EXPECT_NE(token, 0u);
    EXPECT_EQ(mac.symbolicModesPushed(), 1);
    EXPECT_EQ(mac.unreleased(), QStringList{u"PushSymbolicHotKeyMode"_s});
    hotKeys.popSymbolicHotKeyMode(token);
    EXPECT_EQ(mac.symbolicModesPushed(), 0);
    EXPECT_EQ(mac.callsOf(u"PushSymbolicHotKeyMode"_s), (QList<QVariantList>{{1}}));
    EXPECT_EQ(mac.callsOf(u"PopSymbolicHotKeyMode"_s),
              (QList<QVariantList>{{u"PushSymbolicHotKeyMode 1"_s}}));
}

TEST_F(CarbonSymbolicHotKeysTest, modeThatCouldNotBePushed_isNotPopped)
{
    mac.fail(u"PushSymbolicHotKeyMode"_s);
    const auto token = hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
    EXPECT_EQ(token, 0u);
    hotKeys.popSymbolicHotKeyMode(token);
    EXPECT_TRUE(mac.callsOf(u"PopSymbolicHotKeyMode"_s).isEmpty());
}

} // namespace tarnwick
