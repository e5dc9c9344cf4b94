// SPDX-License-Identifier: MIT
// Which changes of the front window are switches, and how they are announced, whatever the display server.
#include "platform/linux/workspace/SwitchAnnouncements.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QCoreApplication>
#include <QHash>
#include <gtest/gtest.h>

#include <utility>

using namespace tarnwick;

namespace {

const FrontWindow Editor{10, 100};
const FrontWindow OtherEditor{11, 100};
const FrontWindow EditorDialog{12, 100};
const FrontWindow Terminal{20, 200};
const FrontWindow Nothing{};

MenuBarOwner ownerOf(const FrontWindow& front)
{
    return {front.window, {}};
}

/// A display server that a test plays.
class FakeFrontApplication final : public FrontApplication
{
public:
    bool tellsChanges = true;
    QList<FrontWindow> untold;         ///< changes that watch() tells
    std::optional<FrontWindow> unseen; ///< what lookAgain() finds

    /// Lever: another window comes to the front, which is told at once.
    void bring(const FrontWindow& front)
    {
        _current = front;
        Q_EMIT changed(front);
    }

    bool watch() override
    {
        for (const FrontWindow& front : std::exchange(untold, {}))
            bring(front);
        return tellsChanges;
    }
    [[nodiscard]] FrontWindow current() const override { return _current; }
    std::optional<FrontWindow> lookAgain() override { return unseen; }
    void afterChangesSoFar(std::function<void()> then) override
    {
        QMetaObject::invokeMethod(this, std::move(then), Qt::QueuedConnection);
    }

private:
    FrontWindow _current = Editor;
};

class SwitchAnnouncementsTest : public ::testing::Test
{
protected:
    bool start()
    {
        return announcements.start([this] { ++announced; });
    }
    static void letEventsPass()
    {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }
    int announcedByNow()
    {
        letEventsPass();
        return announced;
    }

    FakeFrontApplication front;
    SwitchAnnouncements announcements{front, ownerOf};
    int announced = 0;
};

} // namespace

TEST(FrontSwitches, aDialogOfTheSameMenuBar_isNoSwitch)
{
    const MenuBarOwner editor{10, {}};
    const MenuBarOwner other{11, {}};
    QHash<xcb_window_t, MenuBarOwner> owners{{10, editor}, {12, editor}, {11, other}};
    int questions = 0;
    FrontSwitches switches(Editor, [&](const FrontWindow& front) {
        ++questions;
        return owners.value(front.window, MenuBarOwner{front.window, {}});
    });
    EXPECT_FALSE(switches.isSwitch(Editor));
    EXPECT_EQ(questions, 0);
    EXPECT_FALSE(switches.isSwitch(EditorDialog));
    EXPECT_FALSE(switches.isSwitch(Editor));
    EXPECT_TRUE(switches.isSwitch(OtherEditor));
    EXPECT_TRUE(switches.isSwitch(EditorDialog));

    owners.remove(12); // the dialog is gone by the time the next window is in front
    EXPECT_FALSE(switches.isSwitch(Editor)) << "its owner was seen while it was there";
}

TEST(FrontSwitches, anotherProcess_isASwitchWithoutAskingAnyone)
{
    FrontSwitches switches(Nothing, [](const FrontWindow&) -> MenuBarOwner {
        ADD_FAILURE() << "asked";
        return {};
    });
    EXPECT_TRUE(switches.isSwitch(Editor));
    EXPECT_TRUE(switches.isSwitch(Terminal));
    EXPECT_TRUE(switches.isSwitch(Nothing));
    EXPECT_FALSE(switches.isSwitch(Nothing));
    EXPECT_TRUE(switches.isSwitch(Terminal));
}

TEST(FrontSwitches, whereItStartsFrom_isWhatTheNextChangeIsComparedWith)
{
    FrontSwitches switches(Editor, [](const FrontWindow& front) { return MenuBarOwner{front.window, {}}; });
    switches.startFrom(Terminal);
    EXPECT_FALSE(switches.isSwitch(Terminal));
    EXPECT_TRUE(switches.isSwitch(Editor)) << "that was before";
    EXPECT_TRUE(switches.isSwitch(OtherEditor));
    switches.startFrom(Editor);
    EXPECT_TRUE(switches.isSwitch(OtherEditor)) << "whose owner was seen before";
}

TEST_F(SwitchAnnouncementsTest, eachSwitch_isAnnouncedByItself_fromTheEventLoop)
{
    ASSERT_TRUE(start());
    front.bring(Terminal);
    front.bring(Editor);
    front.bring(Editor);
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(announcedByNow(), 2);
}

TEST_F(SwitchAnnouncementsTest, whatWasInFrontBefore_isNoSwitch_notEvenWhenItIsToldLate)
{
    front.bring(Terminal);
    front.untold = {Editor, OtherEditor};
    ASSERT_TRUE(start());
    EXPECT_EQ(announcedByNow(), 0);
    front.bring(OtherEditor);
    EXPECT_EQ(announcedByNow(), 0);
    front.bring(Editor);
    EXPECT_EQ(announcedByNow(), 1);
}

TEST_F(SwitchAnnouncementsTest, withoutADisplayServerThatTells_nothingStarts)
{
    front.tellsChanges = false;
    EXPECT_FALSE(start());
    front.bring(Terminal);
    EXPECT_EQ(announcedByNow(), 0);
}

TEST_F(SwitchAnnouncementsTest, aSwitchThatNobodyHasTold_isAnnouncedBeforeWhoAsks)
{
    ASSERT_TRUE(start());
    int announcedThen = -1;
    const auto ask = [&] {
        announcedThen = -1;
        announcements.announceFrontThen([&] { announcedThen = announced; });
    };
    ask();
    EXPECT_EQ(announcedThen, 0) << "at once, with nothing to announce";
    front.unseen = FrontWindow{XCB_WINDOW_NONE, 300, {":1.5", "/window", 1}};
    ask();
    EXPECT_EQ(announcedThen, -1);
    EXPECT_EQ(announcedByNow(), 1);
    EXPECT_EQ(announcedThen, 1);
    ask();
    EXPECT_EQ(announcedThen, 1) << "it has been announced";
}

TEST_F(SwitchAnnouncementsTest, aNativeWindowThatIsFoundInTheTreeLate_isASwitch)
{
    ASSERT_TRUE(start());
    const FrontWindow known{XCB_WINDOW_NONE, 300};
    const FrontWindow found{XCB_WINDOW_NONE, 300, {":1.5", "/window", 1}};
    EXPECT_TRUE(known && known.isNative());
    front.bring(known);
    EXPECT_EQ(announcedByNow(), 1);
    front.bring(known);
    EXPECT_EQ(announcedByNow(), 1);
    front.bring(found);
    EXPECT_EQ(announcedByNow(), 2);
    front.bring({XCB_WINDOW_NONE, 300, {":1.5", "/window", 1}});
    EXPECT_EQ(announcedByNow(), 2);
    front.bring(known);
    EXPECT_EQ(announcedByNow(), 3);
}

TEST_F(SwitchAnnouncementsTest, severalWhoAsk_areAnsweredAfterAllSwitches)
{
    ASSERT_TRUE(start());
    QList<int> announcedThen;
    front.bring(Terminal);
    front.bring(Editor);
    announcements.announceFrontThen([&] { announcedThen.append(announced); });
    announcements.afterSwitchesSoFar([&] { announcedThen.append(announced); });
    EXPECT_TRUE(announcedThen.isEmpty());
    letEventsPass();
    EXPECT_EQ(announcedThen, (QList<int>{2, 2}));
}

TEST_F(SwitchAnnouncementsTest, whoAsksNext_isAnsweredWhileTheMenuOfTheFirstIsOpen)
{
    ASSERT_TRUE(start());
    bool menuIsOpen = false;
    bool answeredMeanwhile = false;
    front.bring(Terminal);
    announcements.announceFrontThen([&] {
        menuIsOpen = true;
        QCoreApplication::sendPostedEvents(); // as the menu does until it closes
        menuIsOpen = false;
    });
    announcements.announceFrontThen([&] { answeredMeanwhile = menuIsOpen; });
    letEventsPass();
    EXPECT_TRUE(answeredMeanwhile);
}

TEST_F(SwitchAnnouncementsTest, aSwitchWhileAMenuIsOpen_closesIt_andIsAnnouncedWhenItHasEnded)
{
    ASSERT_TRUE(start());
    int closed = 0;
    QObject::connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, &front, [&] { ++closed; });
    MenuTracking::shared().begin();
    front.bring(Terminal);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(announcedByNow(), 0);
    MenuTracking::shared().end();
    EXPECT_EQ(announced, 0) << "the call that popped the menu up has not returned";
    EXPECT_EQ(announcedByNow(), 1);
}
