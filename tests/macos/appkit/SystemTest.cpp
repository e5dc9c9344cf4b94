// SPDX-License-Identifier: MIT
// Alerts, the workspace, the application and its windows, and the service that login items are registered
// with.
#include "foundation/Alerts.h"
#include "platform/macos/login/AppService.h"
#include "platform/macos/session/AppKitAlerts.h"
#include "platform/macos/workspace/AppKitWindows.h"
#include "platform/macos/workspace/AppKitWorkspace.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/appkit/AppKitTest.h"

#include <QWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

class AppKitAlertsTest : public AppKitTest
{
protected:
    FakeApplication application;
    SharedPorts sharedPorts{application};
    AppKitAlerts alerts;
    Alert alert{.style = Alert::Style::Warning,
                .messageText = u"What"_s,
                .informativeText = u"Why"_s,
                .buttonTitles = {u"Open"_s, u"Continue"_s, u"Quit"_s}};
};

TEST_F(AppKitAlertsTest, alert_isShownInFront_untilItIsAnswered)
{
    system().alertAnswers = {-1002, -1002, 1001};
    EXPECT_EQ(alerts.runModal(alert), 1001);
    ASSERT_EQ(system().alerts.size(), 3) << "the session went on twice";
    EXPECT_EQ(system().alerts.first().message, u"What"_s);
    EXPECT_EQ(system().alerts.first().informative, u"Why"_s);
    EXPECT_EQ(system().alerts.first().buttons, alert.buttonTitles);
    EXPECT_EQ(system().alerts.first().style, quint64(Alert::Style::Warning));
    EXPECT_EQ(system().journal, QStringList{u"activate 1"_s});
}

TEST_F(AppKitAlertsTest, sheet_tellsItsAnswer)
{
    QWidget window;
    QList<int> answers;
    system().alertAnswers = {1002};
    alerts.beginSheetModalForWindow(alert, &window, [&answers](int code) { answers.append(code); });
    EXPECT_EQ(answers, QList<int>{1002});
    EXPECT_EQ(system().alerts.first().buttons, alert.buttonTitles);
}

TEST_F(AppKitAlertsTest, sheetWhoseWindowHasGone_tellsNobody)
{
    auto window = std::make_unique<QWidget>();
    const auto kept = std::make_shared<int>();
    int answers = 0;
    system().alertAnswers = {1001};
    system().whileSheet = [&window] { window.reset(); };
    alerts.beginSheetModalForWindow(alert, window.get(), [&answers, kept](int) { ++answers; });
    EXPECT_FALSE(window);
    EXPECT_TRUE(system().alertAnswers.isEmpty()) << "the sheet ends all the same";
    EXPECT_EQ(answers, 0);
    EXPECT_EQ(kept.use_count(), 1) << "what was to be told is kept by nobody";
}

class AppKitWorkspaceTest : public AppKitTest
{
protected:
    AppKitWorkspace workspace;
};

TEST_F(AppKitWorkspaceTest, activeApplication_isToldByEarlierAndLaterSystems)
{
    for (const bool earlier : {true, false}) {
        system().namesActive = earlier;
        system().active = {u"Fennrick"_s, 4711};
        ASSERT_TRUE(workspace.activeApplication());
        EXPECT_EQ(workspace.activeApplication()->name, u"Fennrick"_s);
        EXPECT_EQ(workspace.activeProcessIdentifier(), 4711);
        system().active.reset();
        EXPECT_FALSE(workspace.activeApplication());
        EXPECT_FALSE(workspace.activeProcessIdentifier());
    }
    system().namesActive = true;
    system().active = {u"Nobody"_s, 0};
    EXPECT_FALSE(workspace.activeProcessIdentifier()) << "it is not among what is told";
}

TEST_F(AppKitWorkspaceTest, anotherApplicationInFront_closesTheOpenMenu)
{
    static AppKitWorkspace forLife; // as its handlers are
    ASSERT_TRUE(forLife.installAppFrontSwitchedHandler([] {}));
    int cancelled = 0;
    QObject listener;
    QObject::connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, &listener,
                     [&cancelled] { ++cancelled; });
    appkit::tellOfActivation();
    EXPECT_EQ(cancelled, 0);
    MenuTracking::shared().begin();
    appkit::tellOfActivation();
    EXPECT_EQ(cancelled, 1);
    MenuTracking::shared().end();
}

TEST_F(AppKitWorkspaceTest, urls_areOpened)
{
    EXPECT_TRUE(workspace.openURL(QUrl(u"https://example.org/a b?c=ü"_s)));
    EXPECT_EQ(system().opened, QStringList{u"https://example.org/a%20b?c=%C3%BC"_s});
}

TEST_F(AppKitWorkspaceTest, reducedMotion_isAskedForWhereItCanBe)
{
    EXPECT_FALSE(workspace.accessibilityDisplayShouldReduceMotion());
    system().reducesMotion = true;
    EXPECT_TRUE(workspace.accessibilityDisplayShouldReduceMotion());
    system().reducesMotion = false;
    EXPECT_FALSE(workspace.accessibilityDisplayShouldReduceMotion());
}

TEST_F(AppKitWorkspaceTest, windows_canBeOnEverySpace_andInFront)
{
    QWidget window;
    workspace.setCollectionBehavior(window, Workspace::WindowCollectionBehaviorCanJoinAllSpaces);
    orderFrontRegardless(window);
    EXPECT_EQ(system().journal, (QStringList{u"collection behavior 1"_s, u"order front regardless"_s}));
}

TEST_F(AppKitTest, application_isActivated_inFrontOfOthersOrNot)
{
    activateApplication(true);
    activateApplication(false);
    EXPECT_EQ(system().journal, (QStringList{u"activate 1"_s, u"activate 0"_s}));
}

TEST_F(AppKitTest, alertThatIsOpen_isEndedByAStopAndAnEvent)
{
    abortModalAlert();
    EXPECT_TRUE(system().journal.isEmpty());
    system().modal = true;
    abortModalAlert();
    EXPECT_EQ(system().journal, (QStringList{u"stop modal -1001"_s, u"post 15 1"_s}));
}

TEST_F(AppKitTest, service_isThereOnLaterSystems)
{
    EXPECT_FALSE(hasAppService());
    registerAppService(); // nobody hears it
    EXPECT_EQ(system().serviceStatus, 0);
    appkit::addAppService();
    EXPECT_TRUE(hasAppService());
    registerAppService();
    EXPECT_EQ(appServiceStatus(), AppServiceStatus::Enabled);
    system().serviceStatus = 2;
    EXPECT_EQ(appServiceStatus(), AppServiceStatus::RequiresApproval);
    unregisterAppService();
    EXPECT_EQ(appServiceStatus(), AppServiceStatus::NotRegistered);
}

} // namespace
} // namespace tarnwick
