// SPDX-License-Identifier: MIT
#include "platform/macos/login/SharedFileListLoginItems.h"

#include "tests/fakes/FakeLoginItems.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class SharedFileListLoginItemsTest : public MacTest
{
protected:
    SharedFileListLoginItems items;
    const QUrl us = QUrl::fromLocalFile(u"/Applications/Tarnwick.app"_s);
    const QString List = u"LSSharedFileListCreate 1"_s;
    static constexpr quint32 Quietly = LoginItems::NoUserInteraction | LoginItems::DoNotMountVolumes;
};

TEST_F(SharedFileListLoginItemsTest, list_isTheSessionLoginItemsWithoutOptions)
{
    const auto list = items.createSessionLoginItems();
    ASSERT_TRUE(list);
    EXPECT_EQ(
        mac.callsOf(u"LSSharedFileListCreate"_s),
        (QList<QVariantList>{{QVariant(), u"com.apple.LSSharedFileList.SessionLoginItems"_s, QVariant()}}));
}

TEST_F(SharedFileListLoginItemsTest, snapshot_isTakenWithASeedOfZeroAndKeepsTheOrder)
{
    mac.loginItems = {u"/Applications/Other.app"_s, u"/Applications/Tarnwick.app"_s};
    const auto list = items.createSessionLoginItems();
    const auto snapshot = list->copySnapshot();
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListCopySnapshot"_s), (QList<QVariantList>{{List, 0}}));
    ASSERT_EQ(snapshot.size(), 2);
    EXPECT_EQ(list->resolve(*snapshot.at(0), Quietly), QUrl::fromLocalFile(u"/Applications/Other.app"_s));
    EXPECT_EQ(list->resolve(*snapshot.at(1), Quietly), us);
    // Flags 3, no file reference.
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListItemResolve"_s),
              (QList<QVariantList>{{u"/Applications/Other.app"_s, 3, true, QVariant()},
                                   {u"/Applications/Tarnwick.app"_s, 3, true, QVariant()}}));
}

TEST_F(SharedFileListLoginItemsTest, itemThatCannotBeResolved_isNothing)
{
    mac.loginItems = {QString()};
    const auto list = items.createSessionLoginItems();
    EXPECT_FALSE(list->resolve(*list->copySnapshot().first(), Quietly));
}

TEST_F(SharedFileListLoginItemsTest, insertion_isBeforeTheFirstWithNothingButTheUrl)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    items.createSessionLoginItems()->insertBeforeFirst(us);
    // Before the first, no name, no icon, the bundle, no properties to set or to clear.
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListInsertItemURL"_s),
              (QList<QVariantList>{{List, u"kLSSharedFileListItemBeforeFirst"_s, QVariant(), QVariant(),
                                    QUrl(u"file:///Applications/Tarnwick.app/"_s), QVariant(), QVariant()}}));
    EXPECT_EQ(mac.loginItems, (QStringList{u"/Applications/Tarnwick.app"_s, u"/Applications/Other.app"_s}));
}

TEST_F(SharedFileListLoginItemsTest, removal_takesThatItemOnly)
{
    mac.loginItems = {u"/Applications/Other.app"_s, u"/Applications/Tarnwick.app"_s};
    const auto list = items.createSessionLoginItems();
    list->remove(*list->copySnapshot().at(1));
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListItemRemove"_s),
              (QList<QVariantList>{{List, u"/Applications/Tarnwick.app"_s}}));
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s});
}

TEST_F(SharedFileListLoginItemsTest, failures_leaveNothing)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    mac.fail(u"LSSharedFileListCopySnapshot"_s);
    mac.fail(u"LSSharedFileListInsertItemURL"_s);
    const auto list = items.createSessionLoginItems();
    EXPECT_TRUE(list->copySnapshot().isEmpty());
    list->insertBeforeFirst(us);
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s});
}

TEST_F(SharedFileListLoginItemsTest, noList_isNull)
{
    mac.fail(u"LSSharedFileListCreate"_s);
    EXPECT_FALSE(items.createSessionLoginItems());
}

TEST_F(SharedFileListLoginItemsTest, systemWithoutAnyPartOfTheLists_leavesItToTheSuccessor)
{
    for (const QString& symbol :
         {u"LSSharedFileListCreate"_s, u"LSSharedFileListCopySnapshot"_s, u"LSSharedFileListItemResolve"_s,
          u"LSSharedFileListInsertItemURL"_s, u"LSSharedFileListItemRemove"_s,
          u"kLSSharedFileListSessionLoginItems"_s, u"kLSSharedFileListItemBeforeFirst"_s}) {
        mac.reset();
        mac.takeAway(symbol);
        EXPECT_FALSE(items.createSessionLoginItems()) << symbol.toStdString();
        auto successor = std::make_unique<FakeLoginItems>();
        FakeLoginItems& fake = *successor;
        SharedFileListLoginItems both(std::move(successor));
        EXPECT_TRUE(both.createSessionLoginItems());
        EXPECT_EQ(fake.listsMade, 1) << symbol.toStdString();
        EXPECT_TRUE(mac.callsOf(u"LSSharedFileListCreate"_s).isEmpty()) << symbol.toStdString();
    }
}

TEST_F(SharedFileListLoginItemsTest, noListAtAll_leavesItToTheSuccessor)
{
    auto successor = std::make_unique<FakeLoginItems>();
    FakeLoginItems& fake = *successor;
    SharedFileListLoginItems both(std::move(successor));
    mac.fail(u"LSSharedFileListCreate"_s);
    const auto list = both.createSessionLoginItems();
    ASSERT_TRUE(list);
    list->insertBeforeFirst(us);
    EXPECT_EQ(fake.urls(), QList<QUrl>{us});
}

TEST_F(SharedFileListLoginItemsTest, insertionThatTheListTakes_staysThere)
{
    auto successor = std::make_unique<FakeLoginItems>();
    FakeLoginItems& fake = *successor;
    SharedFileListLoginItems both(std::move(successor));
    both.createSessionLoginItems()->insertBeforeFirst(us);
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Tarnwick.app"_s});
    EXPECT_TRUE(fake.entries.isEmpty());
}

TEST_F(SharedFileListLoginItemsTest, insertionThatTheListIgnores_goesToTheSuccessor)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    mac.loginListIgnoresInsertions = true;
    auto successor = std::make_unique<FakeLoginItems>();
    FakeLoginItems& fake = *successor;
    SharedFileListLoginItems both(std::move(successor));
    both.createSessionLoginItems()->insertBeforeFirst(us);
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListInsertItemURL"_s).size(), 1);
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s});
    EXPECT_EQ(fake.urls(), QList<QUrl>{us});
    items.createSessionLoginItems()->insertBeforeFirst(us);
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s}) << "and nowhere without one";
}

TEST_F(SharedFileListLoginItemsTest, itemsOfTheSuccessor_comeAfterThoseOfTheListAndAreItsOwn)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    auto successor = std::make_unique<FakeLoginItems>();
    FakeLoginItems& fake = *successor;
    fake.add(us);
    SharedFileListLoginItems both(std::move(successor));
    const auto list = both.createSessionLoginItems();
    const auto snapshot = list->copySnapshot();
    ASSERT_EQ(snapshot.size(), 2);
    EXPECT_EQ(list->resolve(*snapshot.at(0), Quietly), QUrl::fromLocalFile(u"/Applications/Other.app"_s));
    EXPECT_EQ(list->resolve(*snapshot.at(1), Quietly), us);
    EXPECT_EQ(fake.resolveFlags, QList<quint32>{3});
    list->remove(*snapshot.at(1));
    EXPECT_TRUE(fake.entries.isEmpty());
    EXPECT_TRUE(mac.callsOf(u"LSSharedFileListItemRemove"_s).isEmpty());
    list->remove(*snapshot.at(0));
    EXPECT_TRUE(mac.loginItems.isEmpty());
}

} // namespace tarnwick
