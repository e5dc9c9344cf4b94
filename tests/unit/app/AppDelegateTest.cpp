// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"

#include "app/AboutPanel.h"
#include "app/MainInterface.h"
#include "mouse/QMMouseHotKey.h"
#include "tests/unit/app/AppFixture.h"

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 ExtraButton = 25;

class FakePreferences final : public PreferencesDisplay
{
public:
    explicit FakePreferences(Journal& journal) : _journal(journal) {}
    void displayWindow() override { _journal.append(u"display preferences"_s); }

private:
    Journal& _journal;
};

class AppDelegateTest : public AppFixture
{
protected:
    /// A desktop that was used before and gives access to menus.
    AppDelegateTest() { store.values[TWFirstRunKey] = true; }

    AppDelegate::MakePreferences makePreferences()
    {
        return [this]() -> std::unique_ptr<PreferencesDisplay> {
            journal.append(u"make preferences"_s);
            if (!preferencesCanBeMade)
                return nullptr;
            return std::make_unique<FakePreferences>(journal);
        };
    }

    void denyAccess(int answer)
    {
        accessibility.enabled = false;
        accessibility.trusted = false;
        alerts.answer = answer;
    }

    [[nodiscard]] QStringList journalWithoutReads() const
    {
        QStringList rest;
        for (const QString& event : journal) {
            if (!event.startsWith(u"read "_s))
                rest.append(event);
        }
        return rest;
    }

    bool preferencesCanBeMade = true; ///< lever
};

// Settings

TEST_F(AppDelegateTest, settingsOfANewUser_areExactlyTheTable_inItsOrder)
{
    struct Row
    {
        const char* key;
        const QString& constant;
        QVariant value;
    };
    const Row rows[] = {
        {"EnableHotkey", TWEnableHotKeyKey, true},
        {"NewTrigger", TWTriggerKey, QString(QChar(0x02C4)) + u'Z'},
        {"TriggerCharacterUInt", TWTriggerCharacterKey, quint64(6)},
        {"TriggerModifiers", TWTriggerModifiersKey, quint64(524288)},
        {"FoldAlternate", TWFoldAlternateKey, true},
        {"ShowKeyEquivalents", TWShowKeyEquivalentsKey, false},
        {"ShowAppleMenu", TWShowAppleMenuKey, true},
        {"ShowStatusBarIcon", TWShowStatusBarIconKey, true},
        {"ShowTarnwickMenu", TWShowTarnwickMenuKey, true},
        {"LaunchOnLogin", TWLaunchOnLoginKey, false},
        {"FontSizeSmall", TWFontSizeSmallKey, 11},
        {"TitleFontSizeSmall", TWTitleFontSizeSmallKey, 0},
        {"ShowApplicationMenu", TWShowApplicationMenuKey, true},
        {"EnableMouseButton", TWEnableMouseButtonKey, false},
        {"MouseButton", TWMouseButtonKey, quint64(25)},
    };
    store.values.clear();
    auto& controller = UserDefaultsController::sharedUserDefaultsController();
    ASSERT_EQ(controller.initialValues().size(), 15);
    int index = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        EXPECT_EQ(row.constant, QString::fromLatin1(row.key));
        EXPECT_EQ(controller.initialValues().at(index).first, row.constant);
        EXPECT_EQ(controller.initialValues().at(index).second, row.value);
        const QVariant read = UserDefaults::standardUserDefaults().objectForKey(row.constant);
        EXPECT_EQ(read, row.value);
        EXPECT_EQ(read.typeId(), row.value.typeId());
        EXPECT_EQ(controller.valueForKeyPath(u"values."_s + row.constant), row.value);
        ++index;
    }
    EXPECT_EQ(TWFirstRunKey, u"FirstRun"_s);
    EXPECT_FALSE(UserDefaults::standardUserDefaults().boolForKey(TWFirstRunKey));
    EXPECT_FALSE(UserDefaults::standardUserDefaults().objectForKey(TWFirstRunKey).isValid())
        << "it is not registered";
}

TEST_F(AppDelegateTest, resettingTheSettings_yieldsExactlyTheTable)
{
    auto& controller = UserDefaultsController::sharedUserDefaultsController();
    for (const auto& [key, value] : controller.initialValues())
        set(key, value.typeId() == QMetaType::QString ? QVariant(u"⌘X"_s) : QVariant(1));
    controller.revertToInitialValues(nullptr);
    for (const auto& [key, value] : controller.initialValues())
        EXPECT_EQ(UserDefaults::standardUserDefaults().objectForKey(key), value) << qPrintable(key);
    EXPECT_TRUE(UserDefaults::standardUserDefaults().boolForKey(TWFirstRunKey)) << "no row of the table";
}

// Accessibility check

TEST_F(AppDelegateTest, accessibilityCheck_asksOnlyWithoutAnyAccess)
{
    struct Row
    {
        const char* sentence;
        bool enabled;
        bool trusted;
        int alerts;
    };
    const Row rows[] = {
        {"all programs have access", true, false, 0},
        {"this program has access", false, true, 0},
        {"both", true, true, 0},
        {"no access", false, false, 1},
    };
    AppDelegate delegate(makePreferences());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        accessibility.enabled = row.enabled;
        accessibility.trusted = row.trusted;
        alerts.shown.clear();
        delegate.accessibilityCheck();
        EXPECT_EQ(alerts.shown.size(), row.alerts);
    }
}

TEST_F(AppDelegateTest, accessibilityAlert_hasItsTextsAndButtons)
{
    denyAccess(1001);
    AppDelegate(makePreferences()).accessibilityCheck();
    ASSERT_EQ(alerts.shown.size(), 1);
    const Alert& alert = alerts.shown.first();
    EXPECT_EQ(alert.style, Alert::Style::Warning);
    EXPECT_EQ(alert.messageText, u"Tarnwick requires that the Accessibility API be enabled."_s);
    EXPECT_EQ(alert.informativeText, u"Would you like to launch System Preferences so that you can turn on "
                                     u"\"Enable access for assistive devices\"?"_s);
    EXPECT_EQ(alert.buttonTitles,
              (QStringList{u"Open System Preferences"_s, u"Continue Anyway"_s, u"Quit Tarnwick"_s}));
}

TEST_F(AppDelegateTest, openSystemPreferences_opensThePaneOfTheOneFolder)
{
    struct Row
    {
        const char* sentence;
        QStringList folders;
        QList<QUrl> opened;
    };
    const QUrl pane(u"file:///System/Library/PreferencePanes/UniversalAccessPref.prefPane"_s);
    const Row rows[] = {
        {"no folder", {}, {}},
        {"one folder", {u"/System/Library/PreferencePanes"_s}, {pane}},
        {"one folder with a slash at its end", {u"/System/Library/PreferencePanes/"_s}, {pane}},
        {"two folders", {u"/System/Library/PreferencePanes"_s, u"/Library/PreferencePanes"_s}, {}},
    };
    denyAccess(1000);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        workspace.preferencePanes = row.folders;
        workspace.opened.clear();
        AppDelegate(makePreferences()).accessibilityCheck();
        EXPECT_EQ(workspace.opened, row.opened);
        EXPECT_TRUE(application.terminateSenders.isEmpty());
    }
}

TEST_F(AppDelegateTest, continueAnyway_leavesARunningProgramWithAStatusItem_afterTheAlert)
{
    for (const int answer : {1000, 1001}) {
        SCOPED_TRACE(answer);
        denyAccess(answer);
        journal.clear();
        AppDelegate delegate(makePreferences());
        application.setDelegate(&delegate);
        delegate.applicationWillFinishLaunching();
        EXPECT_EQ(journalWithoutReads(), (QStringList{u"alert"_s, u"install handler"_s, u"register 6 0x800"_s,
                                                      u"login items"_s, u"status item"_s, u"rebuild"_s}));
        EXPECT_EQ(statusBar.items().size(), 1);
        EXPECT_FALSE(application.terminating());
        application.setDelegate(nullptr);
    }
}

TEST_F(AppDelegateTest, withoutAccessToAnyMenu_continuingStillLeavesAStatusItemWhenSomethingHasTheFocus)
{
    denyAccess(1001);
    accessibility.removeAttribute(editor, u"AXMenuBar"_s);
    AppDelegate delegate(makePreferences());
    delegate.applicationWillFinishLaunching();
    EXPECT_EQ(statusBar.items().size(), 1);
    hotKeys.press(6, 0x800);
    ASSERT_EQ(presenter.popUps.size(), 1);
    EXPECT_EQ(presenter.popUps.first().titles.first(), (QStringList{u""_s, u"Tarnwick"_s}));
}

TEST_F(AppDelegateTest, quitInTheAlert_endsOnBehalfOfTheDelegate_beforeAnythingIsMade)
{
    denyAccess(1002);
    store.values.clear();
    AppDelegate delegate(makePreferences());
    application.setDelegate(&delegate);
    delegate.applicationWillFinishLaunching();

    EXPECT_EQ(application.terminateSenders, QList<ActionSender*>{&delegate});
    EXPECT_EQ(journal, (Journal{u"alert"_s, u"terminate"_s})) << "no setting is even read";
    EXPECT_TRUE(statusBar.items().isEmpty());
    EXPECT_TRUE(hotKeys.registered.isEmpty());
    EXPECT_TRUE(store.values.isEmpty()) << "the next start is still the first one";
}

// Start-up and end

TEST_F(AppDelegateTest, launchingTwice_keepsTheController)
{
    AppDelegate delegate(makePreferences());
    delegate.applicationWillFinishLaunching();
    delegate.applicationWillFinishLaunching();
    EXPECT_EQ(statusBar.made, 1);
}

TEST_F(AppDelegateTest, firstStart_showsThePreferencesOnce_lastOfAll)
{
    store.values.clear();
    {
        AppDelegate delegate(makePreferences());
        delegate.applicationWillFinishLaunching();
        EXPECT_EQ(journalWithoutReads(), (QStringList{u"install handler"_s, u"register 6 0x800"_s,
                                                      u"login items"_s, u"status item"_s, u"rebuild"_s,
                                                      u"make preferences"_s, u"display preferences"_s}));
        EXPECT_EQ(store.values.value(TWFirstRunKey), QVariant(true));
    }
    journal.clear();
    AppDelegate nextStart(makePreferences());
    nextStart.applicationWillFinishLaunching();
    EXPECT_FALSE(journal.contains(u"display preferences"_s));
}

TEST_F(AppDelegateTest, firstRunCheck_storesBeforeItShows)
{
    store.values.clear();
    bool stored = false;
    AppDelegate delegate([&]() -> std::unique_ptr<PreferencesDisplay> {
        stored = store.values.value(TWFirstRunKey).toBool();
        return nullptr;
    });
    delegate.firstRunCheck();
    EXPECT_TRUE(stored);
}

TEST_F(AppDelegateTest, mouseButton_reachesTheController_onceLaunchingHasFinished)
{
    store.values[TWEnableMouseButtonKey] = true;
    AppDelegate delegate(makePreferences());
    auto mouseHotKey = std::make_unique<QMMouseHotKey>();
    QMMouseHotKey& trigger = *mouseHotKey;
    delegate.setMouseHotKey(std::move(mouseHotKey));
    trigger.awakeFromNib();

    delegate.applicationWillFinishLaunching();
    EXPECT_TRUE(taps.send(ExtraButton));
    EXPECT_TRUE(presenter.popUps.isEmpty()) << "dropped: nobody listens yet";

    delegate.applicationDidFinishLaunching();
    EXPECT_TRUE(taps.send(ExtraButton)) << "the click reaches the application as well";
    EXPECT_EQ(presenter.popUps.size(), 1);
}

TEST_F(AppDelegateTest, ending_isAlwaysAllowed_afterTheTapIsGone)
{
    AppDelegate delegate(makePreferences());
    auto mouseHotKey = std::make_unique<QMMouseHotKey>();
    mouseHotKey->awakeFromNib();
    delegate.setMouseHotKey(std::move(mouseHotKey));
    journal.clear();
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    EXPECT_EQ(journal, (Journal{u"disable"_s, u"release"_s}));
}

TEST_F(AppDelegateTest, delegateWithoutAMainInterface_launchesAndEnds)
{
    AppDelegate delegate(makePreferences());
    delegate.applicationDidFinishLaunching();
    delegate.displayAboutPanel();
    EXPECT_TRUE(delegate.applicationShouldTerminate());
    EXPECT_TRUE(journal.isEmpty());
}

// Preferences and commands

TEST_F(AppDelegateTest, preferences_areMadeOnce_andDisplayedOnEveryRequest)
{
    AppDelegate delegate(makePreferences());
    delegate.showPreferencePanel();
    delegate.showPreferencePanelAction(&delegate);
    delegate.showPreferencePanelAction(nullptr);
    EXPECT_EQ(journal, (Journal{u"make preferences"_s, u"display preferences"_s, u"display preferences"_s,
                                u"display preferences"_s}));
}

TEST_F(AppDelegateTest, preferencesThatCannotBeMade_areTriedAgainAtTheNextRequest)
{
    preferencesCanBeMade = false;
    AppDelegate delegate(makePreferences());
    delegate.showPreferencePanel();
    preferencesCanBeMade = true;
    delegate.showPreferencePanel();
    EXPECT_EQ(journal, (Journal{u"make preferences"_s, u"make preferences"_s, u"display preferences"_s}));
}

TEST_F(AppDelegateTest, startingTheRunningProgramAgain_showsThePreferences)
{
    AppDelegate delegate(makePreferences());
    EXPECT_FALSE(delegate.applicationShouldHandleReopenHasVisibleWindows(false));
    EXPECT_FALSE(delegate.applicationShouldHandleReopenHasVisibleWindows(true));
    EXPECT_EQ(journal.count(u"display preferences"_s), 2);
}

TEST_F(AppDelegateTest, commands_areTheFive_andNothingElse)
{
    AppDelegate delegate(makePreferences());
    auto aboutPanel = std::make_unique<AboutPanel>(delegate);
    const AboutPanel& panel = *aboutPanel;
    delegate.setAboutPanel(std::move(aboutPanel));

    for (const QString& action :
         {u"displayAboutPanel"_s, u"showPreferencePanel"_s, u"showPreferencePanelAction:"_s,
          u"openQuorlaneWebpage:"_s, u"openOstravaneWebpage:"_s}) {
        EXPECT_TRUE(delegate.respondsTo(action)) << qPrintable(action);
        delegate.perform(action, nullptr);
    }
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(journal, (Journal{u"make preferences"_s, u"display preferences"_s, u"display preferences"_s}));
    EXPECT_EQ(workspace.opened,
              (QList<QUrl>{QUrl(u"https://quorlane.example/"_s), QUrl(u"https://ostravane.example/"_s)}));

    journal.clear();
    for (const QString& action : {u"displayAboutPanel:"_s, u"terminate:"_s, QString()}) {
        EXPECT_FALSE(delegate.respondsTo(action));
        delegate.perform(action, nullptr);
    }
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(AppDelegateTest, popUp_opensTheMenu_onceThereIsOne)
{
    AppDelegate delegate(makePreferences());
    const QString action = u"popUpMenuAtMouseLocation"_s;
    EXPECT_TRUE(delegate.respondsTo(action));
    delegate.perform(action, nullptr);
    EXPECT_TRUE(presenter.popUps.isEmpty());
    delegate.applicationWillFinishLaunching();
    delegate.perform(action, nullptr);
    EXPECT_EQ(presenter.popUps.size(), 1);
}

// Main interface

TEST_F(AppDelegateTest, mainInterface_tapsBeforeItLaunches_andIsTheApplicationsDelegate)
{
    store.values[TWEnableMouseButtonKey] = true;
    {
        MainInterface interface(makePreferences());
        EXPECT_EQ(journal, (Journal{u"create"_s, u"add source"_s, u"enable"_s}));
        EXPECT_NE(application.delegate(), nullptr);
        EXPECT_TRUE(taps.send(ExtraButton));
        EXPECT_TRUE(presenter.popUps.isEmpty());

        interface.finishLaunching();
        EXPECT_EQ(statusBar.items().size(), 1);
        EXPECT_TRUE(taps.send(ExtraButton));
        EXPECT_EQ(presenter.popUps.size(), 1);

        presenter.choose = {u"Tarnwick"_s, u"Quit"_s};
        EXPECT_TRUE(hotKeys.press(6, 0x800));
        EXPECT_TRUE(application.terminating());
        EXPECT_TRUE(taps.taps.isEmpty()) << "the delegate was asked";
    }
    EXPECT_EQ(application.delegate(), nullptr);
    EXPECT_TRUE(statusBar.items().isEmpty());
}

TEST_F(AppDelegateTest, mainInterface_whoseUserQuitsInTheAlert_makesNothingMore)
{
    denyAccess(1002);
    store.values[TWEnableMouseButtonKey] = true;
    MainInterface interface(makePreferences());
    journal.clear();
    interface.finishLaunching();
    EXPECT_EQ(journal, (Journal{u"alert"_s, u"terminate"_s, u"disable"_s, u"release"_s}));
}

} // namespace
