// SPDX-License-Identifier: MIT
#include "tests/unit/app/AppControllerFixture.h"

#include <QCoreApplication>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 BrowserPid = 200;

// The pause is a number of single precision.
const double Pause = 0.64999997615814209;

class AppChangeTest : public AppControllerFixture
{
protected:
    void switchTo(const QString& name, const QString& menus)
    {
        const UIElementRef element = bringToFront(name, BrowserPid);
        if (!menus.isEmpty())
            giveMenuBar(element, menus);
        workspace.announceSwitch();
    }

    /// The application publishes its menus just before the mirror asks for them the `nth` time.
    void switchToSlow(const QString& name, int nth)
    {
        const UIElementRef element = bringToFront(name, BrowserPid);
        beforeRebuild = [this, element, nth] {
            if (rebuilds == nth)
                giveMenuBar(element, u"File\n  New\n"_s);
        };
        workspace.announceSwitch();
    }
};

TEST_F(AppChangeTest, switchOfTheFrontApplication_pausesThenRebuilds)
{
    start();
    switchTo(u"Browser"_s, u"Browser\n  About\nGo\n  Back\n"_s);
    EXPECT_EQ(journal, (Journal{u"sleep 0.65"_s, u"rebuild"_s}));
    EXPECT_EQ(clock.slept, QList<double>{Pause});
    EXPECT_EQ(titlesOf(*probe().mirror()->menu()), (QStringList{u"Browser"_s, u"Go"_s}));
    EXPECT_EQ(probe().appPID(), QVariant(BrowserPid));
}

TEST_F(AppChangeTest, menusPublishedLate_areReadAfterAFurtherPause)
{
    start();
    switchToSlow(u"Slow"_s, 2);
    EXPECT_EQ(journal, (Journal{u"sleep 0.65"_s, u"rebuild"_s, u"sleep 1.8"_s, u"rebuild"_s}));
    EXPECT_EQ(clock.slept, (QList<double>{Pause, 1.8}));
    EXPECT_TRUE(controller->menuHasItems());
}

TEST_F(AppChangeTest, menusThatNeverCome_leaveAnEmptyMenuUntilTheNextSwitch)
{
    start();
    switchToSlow(u"Slow"_s, 3);
    EXPECT_EQ(rebuilds, 2);
    EXPECT_FALSE(controller->menuHasItems());
    workspace.announceSwitch();
    EXPECT_TRUE(controller->menuHasItems());
}

TEST_F(AppChangeTest, firefox_isReadAThirdTime_afterAnEmptyFirst)
{
    struct Row
    {
        const char* sentence;
        QString name;
        int menusAt;
        int rebuilds;
    };
    const Row rows[] = {
        {"still empty at the second reading", u"Firefox"_s, 3, 3},
        {"there at the second reading: read again all the same", u"Firefox"_s, 2, 3},
        {"there at the first reading", u"Firefox"_s, 1, 1},
        {"another case is another browser", u"firefox"_s, 3, 2},
        {"a longer name is another browser", u"Firefox Nightly"_s, 3, 2},
    };
    start();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        rebuilds = 0;
        clock.slept.clear();
        switchToSlow(row.name, row.menusAt);
        EXPECT_EQ(rebuilds, row.rebuilds);
        EXPECT_EQ(clock.slept.size(), row.rebuilds == 1 ? 1 : 2);
        EXPECT_EQ(controller->menuHasItems(), row.rebuilds >= row.menusAt);
    }
}

TEST_F(AppChangeTest, everyUpdate_isAReadingOfItsOwn_andNoNameIsAskedForBeforeTheFirst)
{
    start();
    accessibility.journal = workspace.journal = &journal;
    switchToSlow(u"Firefox"_s, 3);
    const Journal update{u"begin reading"_s, u"ask name"_s, u"rebuild"_s};
    const Journal isFirefox{u"ask name"_s};
    const Journal boldTitle{u"ask name"_s};
    EXPECT_EQ(journal, Journal{u"sleep 0.65"_s} + update + Journal{u"sleep 1.8"_s} + update + isFirefox +
                           update + boldTitle);
}

TEST_F(AppChangeTest, applicationTitle_isBold_andTheMenuHasTheMenuBarFontOfTheSetting)
{
    start();
    set(TWFontSizeSmallKey, 15);
    switchTo(u"Browser"_s, u"Browser\n  About\nGo\n"_s);
    QFont bold = fonts.menuBarFontOfSize(15);
    bold.setBold(true);
    const auto menu = probe().mirror()->menu();
    EXPECT_EQ(menu->itemAtIndex(0)->attributedTitle(), (AttributedTitle{u"Browser"_s, bold, std::nullopt}));
    EXPECT_EQ(menu->itemAtIndex(1)->attributedTitle(), std::nullopt);
    EXPECT_EQ(menu->font(), fonts.menuBarFontOfSize(15));
}

TEST_F(AppChangeTest, fontSizeThatWraps_asksForTheDefaultSize)
{
    start();
    set(TWFontSizeSmallKey, 200);
    workspace.announceSwitch();
    EXPECT_EQ(probe().mirror()->menu()->font(), fonts.menuBarFontOfSize(-56));
}

TEST_F(AppChangeTest, firstMirror_hasNoBoldTitle)
{
    start();
    EXPECT_EQ(probe().mirror()->menu()->itemWithTitle(u"Editor"_s)->attributedTitle(), std::nullopt);
}

TEST_F(AppChangeTest, everySwitch_postsOneNotification_alsoToOurselvesAndToNobody)
{
    start();
    QList<QVariantMap> posted;
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        u"TWAppChanged"_s, probe().notifier(),
        [&posted](const Notification& notification) { posted.append(notification.userInfo); });

    workspace.switchTo(u"Browser"_s, BrowserPid);
    workspace.switchTo(u"Tarnwick"_s, QCoreApplication::applicationPid());
    workspace.active.reset();
    workspace.announceSwitch();
    workspace.switchTo(u"Unknown"_s, std::nullopt);

    ASSERT_EQ(posted.size(), 4);
    EXPECT_EQ(posted.at(0), (QVariantMap{{u"PID"_s, BrowserPid}}));
    EXPECT_EQ(posted.at(1), (QVariantMap{{u"PID"_s, QCoreApplication::applicationPid()}}));
    EXPECT_EQ(posted.at(2), (QVariantMap{{u"PID"_s, QVariant()}}));
    EXPECT_EQ(posted.at(3), (QVariantMap{{u"PID"_s, QVariant()}}));
    EXPECT_EQ(clock.slept.count(Pause), 4) << "the observer has run each time";
}

TEST_F(AppChangeTest, notificationsOfOtherPosters_areIgnored)
{
    start();
    NotificationCenter::defaultCenter().postNotificationName(TWAppChangedNotification, this, {{u"PID"_s, 1}});
    EXPECT_TRUE(clock.slept.isEmpty());
}

TEST_F(AppChangeTest, notifier_asksTheWorkspaceAtTheMomentOfPosting)
{
    TWAppChangeNotifier notifier;
    QVariant processIdentifier;
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        TWAppChangedNotification, &notifier, [&processIdentifier](const Notification& notification) {
            processIdentifier = notification.userInfo.value(u"PID"_s);
        });
    workspace.active = Workspace::ActiveApplication{u"Browser"_s, BrowserPid};
    EXPECT_EQ(AppFrontSwitchedHandler(notifier), 0);
    EXPECT_EQ(processIdentifier, QVariant(BrowserPid));
}

TEST_F(AppChangeTest, notifier_saysWhetherSwitchesCanBeObserved)
{
    TWAppChangeNotifier notifier;
    EXPECT_TRUE(notifier.setupAppFrontSwitchedHandler());
    workspace.tellsSwitches = false;
    EXPECT_FALSE(notifier.setupAppFrontSwitchedHandler());
}

} // namespace
