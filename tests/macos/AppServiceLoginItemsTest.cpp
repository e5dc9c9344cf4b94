// SPDX-License-Identifier: MIT
#include "platform/macos/login/AppServiceLoginItems.h"

#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class AppServiceLoginItemsTest : public MacTest
{
protected:
    AppServiceLoginItems items;
    const QUrl us = QUrl::fromLocalFile(u"/Applications/Tarnwick.app"_s);
};

TEST_F(AppServiceLoginItemsTest, systemWithoutTheService_hasNoList)
{
    EXPECT_FALSE(items.createSessionLoginItems());
    EXPECT_EQ(mac.functionsCalled(), QStringList{u"SMAppService"_s});
}

TEST_F(AppServiceLoginItemsTest, list_isOurselvesWhereWeAreRegistered)
{
    struct Row
    {
        const char* status;
        int number;
        bool listed;
    };
    const Row rows[] = {
        {"not registered", 0, false},
        {"enabled", 1, true},
        {"registered, and switched off by the user", 2, true},
        {"not found", 3, false},
    };
    for (const Row& row : rows) {
        mac.appServiceStatus = row.number;
        const auto list = items.createSessionLoginItems();
        ASSERT_TRUE(list) << row.status;
        const auto snapshot = list->copySnapshot();
        ASSERT_EQ(snapshot.size(), row.listed ? 1 : 0) << row.status;
        for (const auto& item : snapshot)
            EXPECT_EQ(list->resolve(*item, 3), us) << row.status;
    }
}

TEST_F(AppServiceLoginItemsTest, insertion_registersThisApplicationAndNoOther)
{
    mac.appServiceStatus = 0;
    const auto list = items.createSessionLoginItems();
    list->insertBeforeFirst(QUrl::fromLocalFile(u"/Applications/Other.app"_s));
    EXPECT_TRUE(mac.callsOf(u"registerAndReturnError"_s).isEmpty());
    list->insertBeforeFirst(us);
    EXPECT_EQ(mac.callsOf(u"registerAndReturnError"_s).size(), 1);
    EXPECT_EQ(list->copySnapshot().size(), 1);
}

TEST_F(AppServiceLoginItemsTest, removal_unregisters)
{
    mac.appServiceStatus = 2;
    const auto list = items.createSessionLoginItems();
    list->remove(*list->copySnapshot().first());
    EXPECT_EQ(mac.callsOf(u"unregisterAndReturnError"_s).size(), 1);
    EXPECT_TRUE(list->copySnapshot().isEmpty());
}

} // namespace tarnwick
