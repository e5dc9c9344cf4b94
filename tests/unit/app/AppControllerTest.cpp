// SPDX-License-Identifier: MIT
#include "tests/unit/app/AppControllerFixture.h"

#include <QImage>
#include <QTemporaryDir>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

using AppControllerTest = AppControllerFixture;

const QUrl Ours = QUrl::fromLocalFile(u"/opt/Tarnwick"_s);

// Construction

TEST_F(AppControllerTest, construction_readsTheSettings_thenShowsTheStatusItem_thenMirrors)
{
    controller = std::make_unique<AppController>();
    EXPECT_EQ(journal, (Journal{
                           u"read EnableHotkey"_s,
                           u"read EnableHotkey"_s,
                           u"install handler"_s,
                           u"read TriggerModifiers"_s,
                           u"read TriggerCharacterUInt"_s,
                           u"register 6 0x800"_s,
                           u"read FoldAlternate"_s,
                           u"read ShowKeyEquivalents"_s,
                           u"read ShowAppleMenu"_s,
                           u"read FontSizeSmall"_s,
                           u"read TitleFontSizeSmall"_s,
                           u"read LaunchOnLogin"_s,
                           u"login items"_s,
                           u"read ShowApplicationMenu"_s,
                           u"read EnableMouseButton"_s,
                           u"read ShowStatusBarIcon"_s,
                           u"status item"_s,
                           u"rebuild"_s,
                       }));
    EXPECT_EQ(titlesOf(*probe().mirror()->menu()), (QStringList{u"Editor"_s, u"File"_s}));
    EXPECT_EQ(probe().mirror()->menu()->font(), fonts.menuBarFontOfSize(11));
}

TEST_F(AppControllerTest, withoutWordOfFrontSwitches_nothingIsSetUp)
{
    workspace.tellsSwitches = false;
    controller = std::make_unique<AppController>();

    EXPECT_TRUE(journal.isEmpty());
    EXPECT_EQ(probe().mirror(), nullptr);
    EXPECT_TRUE(statusBar.items().isEmpty());
    EXPECT_TRUE(hotKeys.registered.isEmpty());

    set(TWShowStatusBarIconKey, true);
    set(TWEnableHotKeyKey, true);
    workspace.announceSwitch();
    EXPECT_TRUE(journal.isEmpty()) << "nothing is observed either";
}

TEST_F(AppControllerTest, withoutAMirror_settingsAreNotRead_andNothingIsShown)
{
    accessibility.setFocusedApplication({});
    controller = std::make_unique<AppController>();

    EXPECT_TRUE(journal.isEmpty());
    EXPECT_EQ(probe().mirror(), nullptr);
    EXPECT_TRUE(statusBar.items().isEmpty());
    EXPECT_TRUE(hotKeys.registered.isEmpty());
}

TEST_F(AppControllerTest, withoutAMirror_observationsRunWithTheirPauses_andTriggersShowNothing)
{
    accessibility.setFocusedApplication({});
    controller = std::make_unique<AppController>();

    workspace.switchTo(u"Firefox"_s, 7);
    EXPECT_EQ(clock.slept, (QList<double>{static_cast<double>(0.65F), 1.8}));
    EXPECT_EQ(probe().appPID(), QVariant(qint64(7)));

    set(TWTriggerKey, u"⌘X"_s);
    EXPECT_TRUE(hotKeys.press(6, 0x800));
    set(TWEnableMouseButtonKey, true);
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    for (const QString& key : {TWFoldAlternateKey, TWShowKeyEquivalentsKey, TWShowAppleMenuKey,
                               TWFontSizeSmallKey, TWTitleFontSizeSmallKey, TWShowApplicationMenuKey})
        set(key, {});
    set(TWShowStatusBarIconKey, true);
    EXPECT_EQ(statusBar.items().size(), 1);
    EXPECT_TRUE(presenter.popUps.isEmpty());
    EXPECT_EQ(rebuilds, 0);
}

TEST_F(AppControllerTest, clearAll_endsRefreshesAndPopUps_butNotThePauses)
{
    start();
    controller->clearAll();

    EXPECT_EQ(probe().mirror(), nullptr);
    EXPECT_TRUE(hotKeys.press(6, 0x800));
    set(TWEnableMouseButtonKey, true);
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    workspace.announceSwitch();
    set(TWShowAppleMenuKey, false);
    controller->updateAtInit();
    controller->boldenAppTitleMenu();
    controller->changeToButtonOVMenuFont();
    controller->loadDefaults();

    EXPECT_FALSE(controller->menuHasItems());
    EXPECT_TRUE(presenter.popUps.isEmpty());
    EXPECT_EQ(rebuilds, 0);
    EXPECT_EQ(clock.slept, (QList<double>{static_cast<double>(0.65F), 1.8}));
}

TEST_F(AppControllerTest, settingsAtStart_areHandedToTheMirror)
{
    store.values = {{TWFoldAlternateKey, false}, {TWShowKeyEquivalentsKey, true},
                    {TWShowAppleMenuKey, false}, {TWShowApplicationMenuKey, false},
                    {TWFontSizeSmallKey, 128},   {TWTitleFontSizeSmallKey, 300}};
    start();
    const AppAccessibility& mirror = *probe().mirror();
    EXPECT_FALSE(mirror.foldAlternateItems());
    EXPECT_TRUE(mirror.keyEquivalents());
    EXPECT_FALSE(mirror.showAppleMenu());
    EXPECT_FALSE(mirror.showApplicationMenu());
    EXPECT_EQ(probe().fontSizeSmall(), -128);
    EXPECT_EQ(probe().titleFontSizeSmall(), 44);
}

TEST_F(AppControllerTest, defaultSettings_areHandedToTheMirror)
{
    start();
    const AppAccessibility& mirror = *probe().mirror();
    EXPECT_TRUE(mirror.foldAlternateItems());
    EXPECT_FALSE(mirror.keyEquivalents());
    EXPECT_TRUE(mirror.showAppleMenu());
    EXPECT_TRUE(mirror.showApplicationMenu());
    EXPECT_EQ(probe().fontSizeSmall(), 11);
    EXPECT_EQ(probe().titleFontSizeSmall(), 0);
    EXPECT_TRUE(probe().enableHotkey());
}

TEST_F(AppControllerTest, loginItem_isBroughtInLineWithTheSettingAtEveryStart)
{
    loginItems.add(Ours);
    start();
    EXPECT_TRUE(loginItems.entries.isEmpty()) << "off: an entry of ours is removed";

    controller.reset();
    store.values[TWLaunchOnLoginKey] = true;
    start();
    EXPECT_EQ(loginItems.urls(), QList<QUrl>{Ours});
}

// Settings changes

TEST_F(AppControllerTest, changedFlags_reachTheMirror_andOnlyShowAppleMenuRebuildsIt)
{
    struct Row
    {
        const char* sentence;
        QString key;
        bool (AppAccessibility::*flag)() const;
        int rebuilds;
    };
    const Row rows[] = {
        {"fold alternate items", TWFoldAlternateKey, &AppAccessibility::foldAlternateItems, 0},
        {"key equivalents", TWShowKeyEquivalentsKey, &AppAccessibility::keyEquivalents, 0},
        {"the Apple menu shows at the next pop-up", TWShowAppleMenuKey, &AppAccessibility::showAppleMenu, 1},
        {"the application menu waits for the next switch", TWShowApplicationMenuKey,
         &AppAccessibility::showApplicationMenu, 0},
    };
    start();
    for (const Row& row : rows) {
        for (const bool on : {false, true, false}) {
            SCOPED_TRACE(row.sentence);
            rebuilds = 0;
            set(row.key, on);
            EXPECT_EQ((probe().mirror()->*row.flag)(), on);
            EXPECT_EQ(rebuilds, row.rebuilds);
        }
    }
}

TEST_F(AppControllerTest, showAppleMenu_isHandedOverBeforeTheRebuild)
{
    giveMenuBar(editor, u"Apple\n  About\nEditor\nFile\n"_s);
    start();
    set(TWShowAppleMenuKey, false);
    EXPECT_EQ(titlesOf(*probe().mirror()->menu()), (QStringList{u"Editor"_s, u"File"_s}));
    set(TWShowAppleMenuKey, true);
    EXPECT_EQ(titlesOf(*probe().mirror()->menu()), (QStringList{u"\uF8FF"_s, u"Editor"_s, u"File"_s}));
}

TEST_F(AppControllerTest, changedFontSize_isKeptIn8Bits_andAppliedAtTheNextSwitch)
{
    struct Row
    {
        int stored;
        int kept;
    };
    start();
    for (const Row& row : {Row{200, -56}, Row{127, 127}, Row{128, -128}, Row{-129, 127}, Row{256, 0}}) {
        SCOPED_TRACE(row.stored);
        set(TWFontSizeSmallKey, row.stored);
        set(TWTitleFontSizeSmallKey, row.stored);
        EXPECT_EQ(probe().fontSizeSmall(), row.kept);
        EXPECT_EQ(probe().titleFontSizeSmall(), row.kept);
    }
    set(TWFontSizeSmallKey, 20);
    set(TWTitleFontSizeSmallKey, 30);
    EXPECT_EQ(probe().mirror()->menu()->font(), fonts.menuBarFontOfSize(11));
    EXPECT_EQ(rebuilds, 0);
    workspace.announceSwitch();
    EXPECT_EQ(probe().mirror()->menu()->font(), fonts.menuBarFontOfSize(20));
}

TEST_F(AppControllerTest, enableMouseButton_isTakenUpAtOnce)
{
    start();
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    EXPECT_TRUE(presenter.popUps.isEmpty());
    set(TWEnableMouseButtonKey, true);
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    EXPECT_EQ(presenter.popUps.size(), 1);
    set(TWEnableMouseButtonKey, false);
    controller->mouseHotKeyMouseButtonActioned(mouseHotKey, 25);
    EXPECT_EQ(presenter.popUps.size(), 1);
}

TEST_F(AppControllerTest, otherKeyPaths_areIgnored)
{
    start();
    for (const QString& path : {u"values.TriggerModifiers"_s, u"values.MouseButton"_s, u"EnableHotkey"_s,
                                u"values.enablehotkey"_s, u"values.ShowAppleMenu "_s, QString()})
        controller->observeValueForKeyPathOfObjectChangeContext(path, nullptr, {}, nullptr);
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(AppControllerTest, observedValue_isReadAgain_whateverTheChangeSays)
{
    start();
    controller->observeValueForKeyPathOfObjectChangeContext(u"values.FoldAlternate"_s, nullptr,
                                                            {{u"new"_s, false}}, nullptr);
    EXPECT_TRUE(probe().mirror()->foldAlternateItems());
    EXPECT_EQ(journal, Journal{u"read FoldAlternate"_s});
}

TEST_F(AppControllerTest, observedSettings_areTheTenOfTheController)
{
    start();
    const DefaultsTable table = UserDefaultsController::sharedUserDefaultsController().initialValues();
    QStringList observed;
    for (const auto& [key, value] : table) {
        journal.clear();
        set(key, value);
        if (!journal.isEmpty())
            observed.append(key);
    }
    EXPECT_EQ(observed,
              (QStringList{TWEnableHotKeyKey, TWTriggerKey, TWFoldAlternateKey, TWShowKeyEquivalentsKey,
                           TWShowAppleMenuKey, TWShowStatusBarIconKey, TWFontSizeSmallKey,
                           TWTitleFontSizeSmallKey, TWShowApplicationMenuKey, TWEnableMouseButtonKey}));
}

// Status item

TEST_F(AppControllerTest, statusItem_followsTheSetting_andIsMadeAfreshEachTime)
{
    store.values[TWShowStatusBarIconKey] = false;
    start();
    EXPECT_TRUE(statusBar.items().isEmpty());

    set(TWShowStatusBarIconKey, true);
    ASSERT_EQ(statusBar.items().size(), 1);
    const auto first = statusBar.items().first();
    const auto firstMenu = first->menu;

    set(TWShowStatusBarIconKey, true);
    EXPECT_EQ(statusBar.made, 1) << "it is shown already";

    set(TWShowStatusBarIconKey, false);
    EXPECT_TRUE(statusBar.items().isEmpty());
    EXPECT_EQ(statusBar.removed, 1);
    set(TWShowStatusBarIconKey, false);
    EXPECT_EQ(statusBar.removed, 1);

    set(TWShowStatusBarIconKey, true);
    ASSERT_EQ(statusBar.items().size(), 1);
    EXPECT_NE(statusBar.items().first(), first);
    EXPECT_NE(statusBar.items().first()->menu, firstMenu);
    EXPECT_EQ(statusBar.made, 2);
}

TEST_F(AppControllerTest, statusItem_thatIsSwitchedOff_isFreedWithItsMenu)
{
    start();
    const std::weak_ptr<Menu> menu = statusBar.items().first()->menu;
    set(TWShowStatusBarIconKey, false);
    EXPECT_TRUE(menu.expired());
}

TEST_F(AppControllerTest, statusItem_hasVariableLength_highlightsAndShowsBothImages)
{
    const QTemporaryDir folder;
    QImage normal(4, 4, QImage::Format_ARGB32);
    normal.fill(Qt::black);
    QImage inverse(4, 4, QImage::Format_ARGB32);
    inverse.fill(Qt::white);
    ASSERT_TRUE(normal.save(folder.filePath(u"normal.png"_s)));
    ASSERT_TRUE(inverse.save(folder.filePath(u"inverse.png"_s)));
    application.assets = {{{u"TarnwickMenuBarIcon"_s, u"png"_s}, folder.filePath(u"normal.png"_s)},
                          {{u"TarnwickMenuBarInverseIcon"_s, u"png"_s}, folder.filePath(u"inverse.png"_s)}};
    start();

    ASSERT_EQ(statusBar.items().size(), 1);
    const auto item = statusBar.items().first();
    EXPECT_EQ(item->length, -1);
    EXPECT_TRUE(item->highlightMode);
    EXPECT_EQ(item->image.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(item->alternateImage.pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(AppControllerTest, missingImages_leaveAStatusItemWithoutThem_andAreNotReported)
{
    static int messages = 0;
    messages = 0;
    const auto before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
    start();
    qInstallMessageHandler(before);
    EXPECT_EQ(messages, 0);
    ASSERT_EQ(statusBar.items().size(), 1);
    EXPECT_TRUE(statusBar.items().first()->image.isNull());
    EXPECT_TRUE(statusBar.items().first()->alternateImage.isNull());
}

// Menus

TEST_F(AppControllerTest, statusMenuAndAuxiliaryMenu_holdTheThreeCommands)
{
    start();
    struct Row
    {
        QString title;
        ActionTarget* target;
        QString action;
    };
    const Row rows[] = {{u"About Tarnwick..."_s, &delegate, u"displayAboutPanel"_s},
                        {u"Preferences..."_s, &delegate, u"showPreferencePanel"_s},
                        {u"Quit"_s, &application, u"terminate:"_s}};
    for (const auto& menu : {statusBar.items().first()->menu, probe().mirror()->auxiliaryMenu(),
                             controller->statusItemMenu(), controller->addTarnwickMenuToMenu()}) {
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->title(), u"Tarnwick"_s);
        EXPECT_TRUE(menu->autoenablesItems());
        ASSERT_EQ(menu->numberOfItems(), 3);
        for (int index = 0; index < 3; ++index) {
            const auto item = menu->itemAtIndex(index);
            EXPECT_EQ(item->title(), rows[index].title);
            EXPECT_EQ(item->target().get(), rows[index].target);
            EXPECT_EQ(item->action(), rows[index].action);
            EXPECT_EQ(item->keyEquivalent(), QString());
            EXPECT_FALSE(item->isSeparatorItem());
        }
    }
    EXPECT_NE(controller->statusItemMenu(), controller->statusItemMenu()) << "a new one each time";
}

TEST_F(AppControllerTest, commandsChosenInThePopUp_reachTheDelegateAndTheApplication)
{
    start();
    presenter.choose = {u"Tarnwick"_s, u"About Tarnwick..."_s};
    controller->popUpMenuAtMouseLocation();
    presenter.choose = {u"Tarnwick"_s, u"Preferences..."_s};
    controller->popUpMenuAtMouseLocation();
    presenter.choose = {u"Tarnwick"_s, u"Quit"_s};
    controller->popUpMenuAtMouseLocation();

    ASSERT_EQ(delegate.performed.size(), 2);
    EXPECT_EQ(delegate.performed.first().first, u"displayAboutPanel"_s);
    EXPECT_EQ(delegate.performed.last().first, u"showPreferencePanel"_s);
    EXPECT_EQ(application.terminateSenders.size(), 1);
}

TEST_F(AppControllerTest, auxiliaryMenu_isBuiltOnce)
{
    start();
    const auto menu = probe().mirror()->auxiliaryMenu();
    const DefaultsTable table = UserDefaultsController::sharedUserDefaultsController().initialValues();
    for (const auto& [key, value] : table)
        set(key, value);
    workspace.announceSwitch();
    EXPECT_EQ(probe().mirror()->auxiliaryMenu(), menu);
}

TEST_F(AppControllerTest, changeToButtonOVMenuFont_setsTheAuxiliaryMenusFont)
{
    start();
    set(TWFontSizeSmallKey, 17);
    controller->changeToButtonOVMenuFont();
    EXPECT_EQ(probe().mirror()->auxiliaryMenu()->font(), fonts.menuBarFontOfSize(17));
}

TEST_F(AppControllerTest, boldenAppTitleMenu_givesTheFirstItemOfThatNameABoldTitle)
{
    giveMenuBar(editor, u"File\nEditor\n  About\nEditor\n  Another\n"_s);
    start();
    controller->boldenAppTitleMenu();

    const auto menu = probe().mirror()->menu();
    QFont bold = fonts.menuBarFontOfSize(11);
    bold.setBold(true);
    EXPECT_EQ(menu->itemAtIndex(1)->attributedTitle(), (AttributedTitle{u"Editor"_s, bold, std::nullopt}));
    EXPECT_EQ(menu->itemAtIndex(0)->attributedTitle(), std::nullopt);
    EXPECT_EQ(menu->itemAtIndex(2)->attributedTitle(), std::nullopt);
}

TEST_F(AppControllerTest, boldenAppTitleMenu_withoutAnItemOfThatName_changesNothing)
{
    start();
    workspace.active->name = u"Another"_s;
    controller->boldenAppTitleMenu();
    workspace.active.reset();
    controller->boldenAppTitleMenu();
    for (const auto& item : probe().mirror()->menu()->itemArray())
        EXPECT_EQ(item->attributedTitle(), std::nullopt);
}

TEST_F(AppControllerTest, appURL_isTheFileUrlOfWhatTheUserStarts)
{
    start();
    EXPECT_EQ(controller->appURL(), QUrl(u"file:///opt/Tarnwick"_s));
}

TEST_F(AppControllerTest, openQuorlaneWebpage_opensTheMakersPage)
{
    start();
    controller->openQuorlaneWebpage();
    EXPECT_EQ(workspace.opened, QList<QUrl>{QUrl(u"https://quorlane.example/"_s)});
}

} // namespace
