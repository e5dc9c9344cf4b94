// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/CarbonHotKeys.h"

#include "platform/qt/menu/MenuTracking.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class CarbonHotKeysTest : public MacTest
{
protected:
    static constexpr EventHotKeyID Identity{0x747A7131, 1}; // "tzq1"
    CarbonHotKeys hotKeys;
    QStringList taken;

    void install(const QString& name, qint32 result)
    {
        hotKeys.installEventHandler([this, name, result] {
            taken.append(name);
            return result;
        });
    }
};

TEST_F(CarbonHotKeysTest, installEventHandler_asksForHotKeyPressesOfTheApplicationTarget)
{
    install(u"only"_s, 0);
    // A handler for one event type, class "keyb", kind 5, with user data; no reference to it is kept.
    EXPECT_EQ(
        mac.callsOf(u"InstallEventHandler"_s),
        (QList<QVariantList>{{u"GetApplicationEventTarget"_s, true, 1, 0x6B657962u, 5, true, QVariant()}}));
}

TEST_F(CarbonHotKeysTest, registerEventHotKey_handsEveryNumberOn)
{
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    keepHotKey();
    // Key code, modifiers, signature, id, the application target, options, room for the reference.
    EXPECT_EQ(mac.callsOf(u"RegisterEventHotKey"_s),
              (QList<QVariantList>{{6, 0x800, 0x747A7131, 1, u"GetApplicationEventTarget"_s, 0, true}}));
}

TEST_F(CarbonHotKeysTest, press_reachesTheNewestHandlerOnlyOnce)
{
    keepHotKey();
    install(u"first"_s, 0);
    install(u"second"_s, 0);
    install(u"third"_s, 0);
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x1100, Identity, 0));
    EXPECT_TRUE(mac.pressHotKey({6, 0x1100}));
    EXPECT_EQ(taken, QStringList{u"third"_s});
    EXPECT_FALSE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(taken.size(), 1);
}

TEST_F(CarbonHotKeysTest, pressThatAHandlerDeclines_goesToTheOneBefore)
{
    keepHotKey();
    install(u"older"_s, 0);
    install(u"newer"_s, -9874);
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(taken, (QStringList{u"newer"_s, u"older"_s}));
}

TEST_F(CarbonHotKeysTest, combinationThatSomebodyHolds_isRefused)
{
    keepHotKey();
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    EXPECT_FALSE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    mac.fail(u"RegisterEventHotKey"_s, -9878);
    EXPECT_FALSE(hotKeys.registerEventHotKey(7, 0x800, Identity, 0));
}

TEST_F(CarbonHotKeysTest, keyCodeAbove127_isRefusedUnasked)
{
    keepHotKey();
    EXPECT_TRUE(hotKeys.registerEventHotKey(127, 0, Identity, 0));
    EXPECT_FALSE(hotKeys.registerEventHotKey(128, 0, Identity, 0));
    EXPECT_FALSE(hotKeys.registerEventHotKey(0xFFFFFFFF, 0, Identity, 0));
    EXPECT_EQ(mac.callsOf(u"RegisterEventHotKey"_s).size(), 1);
}

TEST_F(CarbonHotKeysTest, unregister_freesTheCombination)
{
    keepHotKey();
    const auto hotKey = hotKeys.registerEventHotKey(6, 0x800, Identity, 0);
    ASSERT_TRUE(hotKey);
    EXPECT_TRUE(hotKeys.unregisterEventHotKey(*hotKey));
    EXPECT_EQ(mac.callsOf(u"UnregisterEventHotKey"_s), (QList<QVariantList>{{u"RegisterEventHotKey 1"_s}}));
    EXPECT_TRUE(mac.registeredHotKeys().isEmpty());
    EXPECT_EQ(mac.unreleased(), QStringList());
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
}

TEST_F(CarbonHotKeysTest, unregisterOfADeadReference_failsWithoutHarm)
{
    keepHotKey();
    const auto first = hotKeys.registerEventHotKey(6, 0x800, Identity, 0);
    ASSERT_TRUE(first);
    EXPECT_TRUE(hotKeys.unregisterEventHotKey(*first));
    const auto second = hotKeys.registerEventHotKey(6, 0x800, Identity, 0);
    ASSERT_TRUE(second);
    EXPECT_NE(*first, *second) << "a reference is never used twice";
    EXPECT_FALSE(hotKeys.unregisterEventHotKey(*first));
    EXPECT_FALSE(hotKeys.unregisterEventHotKey(0));
    EXPECT_EQ(mac.registeredHotKeys().size(), 1);
}

TEST_F(CarbonHotKeysTest, unregisterThatTheSystemRefuses_isFalse)
{
    keepHotKey();
    const auto hotKey = hotKeys.registerEventHotKey(6, 0x800, Identity, 0);
    ASSERT_TRUE(hotKey);
    mac.fail(u"UnregisterEventHotKey"_s, -9879);
    EXPECT_FALSE(hotKeys.unregisterEventHotKey(*hotKey));
}

TEST_F(CarbonHotKeysTest, pressWhileAMenuIsOpen_isDroppedOnceItHasClosed)
{
    keepHotKey();
    install(u"older"_s, 0);
    install(u"newer"_s, 0);
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    for (int menu = 0; menu < 2; ++menu) {
        {
            const MenuTracking::Span tracking;
            mac.menuIsOpen = true;
            EXPECT_FALSE(mac.pressHotKey({6, 0x800})) << "the system keeps it";
            EXPECT_FALSE(mac.pressHotKey({6, 0x800}));
            mac.menuIsOpen = false;
        }
        EXPECT_EQ(mac.deliverEvents(), 2) << "nobody else has them either";
        EXPECT_EQ(taken, QStringList(menu, u"newer"_s));
        EXPECT_TRUE(mac.pressHotKey({6, 0x800})) << "of a time when the menu has closed";
        EXPECT_EQ(taken, QStringList(menu + 1, u"newer"_s));
    }
}

TEST_F(CarbonHotKeysTest, pressThatIsKeptForAnotherReason_isTaken)
{
    keepHotKey();
    install(u"only"_s, 0);
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    MenuTracking::shared().begin();
    MenuTracking::shared().end();
    mac.menuIsOpen = true; // of somebody else in this process: an alert's, say
    EXPECT_FALSE(mac.pressHotKey({6, 0x800}));
    mac.menuIsOpen = false;
    EXPECT_EQ(mac.deliverEvents(), 1);
    EXPECT_EQ(taken, QStringList{u"only"_s});
}

TEST_F(CarbonHotKeysTest, pressOfAnUnknownTime_isTaken)
{
    keepHotKey();
    install(u"only"_s, 0);
    EXPECT_TRUE(hotKeys.registerEventHotKey(6, 0x800, Identity, 0));
    MenuTracking::shared().begin();
    MenuTracking::shared().end();
    mac.fail(u"GetEventTime"_s);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(taken, QStringList{u"only"_s});
}

} // namespace tarnwick
