// SPDX-License-Identifier: MIT
#include "prefs/PreferencesWindowController.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeLoginItems.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QUrl Ours = QUrl::fromLocalFile(u"/opt/Tarnwick"_s);
const QUrl First = QUrl::fromLocalFile(u"/opt/First"_s);
const QUrl Second = QUrl::fromLocalFile(u"/opt/Second"_s);
const QUrl Unresolvable;

class LoginItemTest : public ::testing::Test
{
protected:
    void fill(const QList<QUrl>& urls)
    {
        items.entries.clear();
        for (const QUrl& url : urls)
            items.add(url.isEmpty() ? std::nullopt : std::optional(url));
    }

    FakeLoginItems items;
    SharedPorts sharedPorts{items};
};

TEST_F(LoginItemTest, enablingAndDisabling_leaveOneEntryOrNone)
{
    struct Row
    {
        const char* sentence;
        QList<QUrl> before;
        bool enabled;
        QList<QUrl> after;
    };
    const Row rows[] = {
        {"a new entry goes to the top of the list", {First, Second}, true, {Ours, First, Second}},
        {"the first entry of an empty list", {}, true, {Ours}},
        {"an entry at another place is found and kept", {First, Ours, Second}, true, {First, Ours, Second}},
        {"an entry at another place is removed", {First, Ours, Second}, false, {First, Second}},
        {"disabling without an entry changes nothing", {First, Second}, false, {First, Second}},
        {"disabling in an empty list changes nothing", {}, false, {}},
        {"an entry that cannot be resolved is skipped", {Unresolvable, Ours}, true, {Unresolvable, Ours}},
        {"an entry that cannot be resolved is not ours", {Unresolvable}, true, {Ours, Unresolvable}},
        {"an entry that cannot be resolved is not removed", {Unresolvable, Ours}, false, {Unresolvable}},
        {"the search ends at the first entry", {Ours, First, Ours}, false, {First, Ours}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        fill(row.before);
        PreferencesWindowController::setStartAtLoginEnabled(Ours, row.enabled);
        EXPECT_EQ(items.urls(), row.after);
        EXPECT_EQ(items.openLists, 0) << "the list is released";
    }
}

TEST_F(LoginItemTest, enablingTwice_leavesASingleEntry)
{
    PreferencesWindowController::setStartAtLoginEnabled(Ours, true);
    PreferencesWindowController::setStartAtLoginEnabled(Ours, true);
    EXPECT_EQ(items.urls(), QList<QUrl>{Ours});
}

TEST_F(LoginItemTest, entriesAreResolvedWithoutAskingTheUserOrMountingVolumes_upToOurs)
{
    fill({First, Ours, Second});
    PreferencesWindowController::setStartAtLoginEnabled(Ours, true);
    EXPECT_EQ(items.resolveFlags, (QList<quint32>{3, 3}));
}

TEST_F(LoginItemTest, desktopWithoutAList_isLeftAlone)
{
    items.available = false;
    PreferencesWindowController::setStartAtLoginEnabled(Ours, true);
    PreferencesWindowController::setStartAtLoginEnabled(Ours, false);
    EXPECT_EQ(items.listsMade, 2);
    EXPECT_TRUE(items.entries.isEmpty());
}

TEST_F(LoginItemTest, appURL_isTheFileUrlOfWhatTheUserStarts)
{
    FakeApplication application;
    application.bundle = u"/opt/my programs/Tarnwick"_s;
    const SharedPorts withApplication(application);
    EXPECT_EQ(PreferencesWindowController::appURL(), QUrl(u"file:///opt/my%20programs/Tarnwick"_s));
}

} // namespace
