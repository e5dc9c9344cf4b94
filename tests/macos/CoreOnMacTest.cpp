// SPDX-License-Identifier: MIT
// The core on the adapters for macOS: what reaches the system from there, and what comes back.
#include "app/MainInterface.h"
#include "foundation/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/hotkeys/CarbonHotKeys.h"
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/macos/hotkeys/TISKeyboardLayout.h"
#include "platform/macos/login/AppServiceLoginItems.h"
#include "platform/macos/login/SharedFileListLoginItems.h"
#include "platform/macos/menu/MacMenuPresenter.h"
#include "platform/macos/system/CFDefaultsStore.h"
#include "platform/macos/workspace/CGScreens.h"
#include "platform/macos/workspace/CarbonFrontSwitch.h"
#include "prefs/PreferencesWindowController.h"
#include "shortcut/KeyStrings.h"
#include "shortcut/SRKeyCodeTransformer.h"
#include "shortcut/SRRecorderCell.h"
#include "tests/fakes/FakeAlerts.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/FakeRecorderCellView.h"
#include "tests/fakes/FakeStatusBar.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/MenuFile.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/AxTree.h"
#include "tests/macos/DeclaredFunctions.h"
#include "tests/macos/MacTest.h"
#include "tests/macos/PlayedMenus.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The workspace of a fake, with the active application of the system and its switches.
class SwitchingWorkspace final : public Workspace
{
public:
    FakeWorkspace fake;

    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override
    {
        const auto processIdentifier = activeProcessIdentifier();
        if (!processIdentifier)
            return std::nullopt;
        const AxNodeRef application = SimulatedMac::instance().application(*processIdentifier);
        const QVariant* title = application ? application->value(u"AXTitle"_s) : nullptr;
        return ActiveApplication{title ? title->toString() : QString(), processIdentifier};
    }
    [[nodiscard]] std::optional<qint64> activeProcessIdentifier() const override
    {
        const qint64 active = SimulatedMac::instance().activeProcess();
        return active == 0 ? std::nullopt : std::optional(active);
    }
    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override
    {
        SimulatedMac::instance().activated = &CarbonFrontSwitch::applicationActivated;
        return _frontSwitch.install(std::move(switched));
    }
    bool openURL(const QUrl& url) override { return fake.openURL(url); }
    [[nodiscard]] QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                                SearchPathDomainMask domains,
                                                                bool expandTilde) const override
    {
        return fake.searchPathForDirectoriesInDomains(directory, domains, expandTilde);
    }

private:
    CarbonFrontSwitch _frontSwitch;
};

/// Every port that does not need AppKit is the system's.
struct MacDesktop
{
    /// One for the whole program: the key-code transformer follows the first one that it meets.
    static TISKeyboardLayout& keyboard()
    {
        static TISKeyboardLayout layout;
        return layout;
    }

    FakeAlerts alerts;
    FakeApplication application;
    FakeClock clock;
    FakeFonts fonts;
    FakeStatusBar statusBar;
    SwitchingWorkspace workspace;
    PlayedMenus* menus = new PlayedMenus;
    MacMenuPresenter presenter{std::unique_ptr<NativeMenus>(menus)};
    AXAccessibility accessibility;
    CFDefaultsStore store;
    CGScreens screens;
    CarbonHotKeys hotKeys;
    CarbonSymbolicHotKeys symbolicHotKeys;
    QuartzEventTaps taps;
    SharedFileListLoginItems loginItems{std::make_unique<AppServiceLoginItems>()};
    SharedPorts sharedPorts{accessibility, alerts,  application, clock,           store,
                            taps,          fonts,   hotKeys,     keyboard(),      loginItems,
                            presenter,     screens, statusBar,   symbolicHotKeys, workspace};
};

} // namespace

class CoreOnMacTest : public MacTest
{
protected:
    static constexpr qint64 EditorPid = 100;
    const qint64 OwnPid = QCoreApplication::applicationPid();
    const QString Target = u"GetApplicationEventTarget"_s;
    const QString Tap = u"CGEventTapCreate 1"_s;
    const QList<QVariantList> TapAsBothMakeIt{{2, 0, 0, 0x2000000ull, true, true}};

    void SetUp() override
    {
        MacTest::SetUp();
        mac.accessGranted = true;
        mac.preferences.insert(TWFirstRunKey, true);
        const auto editor = fake.addApplication(EditorPid, u"Editor"_s);
        fake.setMenuBar(editor, MenuFile::read(u"editor"_s));
        fake.setFocusedApplication(editor);
        tree.show(mac, {editor});
        desktop = std::make_unique<MacDesktop>();
        desktop->application.bundle = mac.bundlePath;
        mac.activate(EditorPid);
    }

    void TearDown() override
    {
        program.reset();
        desktop.reset();
        MacTest::TearDown();
    }

    /// The program as main starts it, without what it did until then.
    void start()
    {
        AppDelegate::initialize();
        program = std::make_unique<MainInterface>([] { return nullptr; });
        keepSource();
        keepHotKey();
        program->finishLaunching();
    }

    /// The user chooses this of every menu that pops up.
    void choose(const QString& holderTitle, const QString& title)
    {
        desktop->menus->whileOpen = [this, holderTitle, title](const NativeMenus::Chosen& chosen) {
            const auto menu = desktop->menus->popUps.last().menu;
            const auto open = [](Menu& opening) {
                if (opening.delegate())
                    opening.delegate()->menuNeedsUpdate(opening);
                opening.update();
            };
            open(*menu);
            const auto holder = menu->itemWithTitle(holderTitle);
            const auto submenu = holder ? holder->submenu() : nullptr;
            if (!submenu)
                return;
            open(*submenu);
            if (const auto item = submenu->itemWithTitle(title))
                chosen(submenu, item);
        };
    }

    /// Our own windows are in front, with a menu bar that has a menu of our name.
    void bringOurselvesToTheFront()
    {
        const auto own = fake.addApplication(OwnPid, u"Tarnwick"_s);
        fake.setMenuBar(own, MenuFile::parse(u"Tarnwick\n  Hide Tarnwick\nWindow\n  Close\n"_s));
        fake.setFocusedApplication(own);
        tree.show(mac, {own});
        EXPECT_TRUE(mac.activate(OwnPid));
    }

    FakeAccessibility fake;
    AxTree tree{fake};
    std::unique_ptr<MacDesktop> desktop;
    std::unique_ptr<MainInterface> program;
};

TEST_F(CoreOnMacTest, start_installsEverythingWithItsNumbers)
{
    start();
    // The mouse trigger: location, placement, options, events of interest, callback and user data.
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), TapAsBothMakeIt);
    // The default allocator, the tap, order 0.
    EXPECT_EQ(mac.callsOf(u"CFMachPortCreateRunLoopSource"_s), (QList<QVariantList>{{QVariant(), Tap, 0}}));
    EXPECT_EQ(mac.callsOf(u"CFRunLoopAddSource"_s),
              (QList<QVariantList>{{u"CFRunLoopGetCurrent"_s, u"CFMachPortCreateRunLoopSource 1"_s,
                                    u"kCFRunLoopCommonModes"_s}}));
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{Tap, true}}));
    // The front switch ("appl", 7), then the hot key's handler ("keyb", 5).
    EXPECT_EQ(mac.callsOf(u"InstallEventHandler"_s),
              (QList<QVariantList>{{Target, true, 1, 0x6170706Cu, 7, true, QVariant()},
                                   {Target, true, 1, 0x6B657962u, 5, true, QVariant()}}));
    // Option-Z: key code, modifiers, signature "tzq1", id, the application target, options.
    EXPECT_EQ(mac.callsOf(u"RegisterEventHotKey"_s),
              (QList<QVariantList>{{6, 0x800, 0x747A7131, 1, Target, 0, true}}));
}

TEST_F(CoreOnMacTest, start_goesFromTheTapOverTheQuestionOfAccessToTheMirror)
{
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    start();
    QStringList order = mac.orderOf(
        {u"CGEventTapCreate"_s, u"CFMachPortCreateRunLoopSource"_s, u"CFRunLoopAddSource"_s,
         u"CGEventTapEnable"_s, u"AXAPIEnabled"_s, u"InstallEventHandler"_s, u"RegisterEventHotKey"_s,
         u"LSSharedFileListCreate"_s, u"LSSharedFileListCopySnapshot"_s, u"LSSharedFileListInsertItemURL"_s});
    EXPECT_EQ(order,
              (QStringList{u"CGEventTapCreate"_s, u"CFMachPortCreateRunLoopSource"_s, u"CFRunLoopAddSource"_s,
                           u"CGEventTapEnable"_s, u"AXAPIEnabled"_s, u"InstallEventHandler"_s,
                           u"InstallEventHandler"_s, u"RegisterEventHotKey"_s, u"LSSharedFileListCreate"_s,
                           u"LSSharedFileListCopySnapshot"_s, u"LSSharedFileListInsertItemURL"_s}))
        << order.join(u' ').toStdString();
}

TEST_F(CoreOnMacTest, tapRefusedInSpiteOfAccess_endsTheProgramWithItsMessage)
{
    mac.fail(u"CGEventTapCreate"_s);
    EXPECT_EXIT(start(), ::testing::ExitedWithCode(1), "^failed to create event tap\n");
    keptForLife.clear();
}

TEST_F(CoreOnMacTest, end_takesTheTapAwayAndKeepsNothingButItsSource)
{
    start();
    EXPECT_TRUE(desktop->application.delegate()->applicationShouldTerminate());
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{Tap, true}, {Tap, false}}));
    // Switched off first, then released.
    EXPECT_EQ(mac.calls().last().function, u"CFRelease"_s);
    EXPECT_EQ(mac.calls().last().arguments, QVariantList{Tap});
    EXPECT_EQ(mac.enabledTaps(), 0);
    program.reset();
    desktop.reset();
    EXPECT_EQ(mac.unreleased(), KeptForLife) << "one of each";
}

TEST_F(CoreOnMacTest, hotKey_popsTheMirrorUpAtThePointer_andAChoiceIsPressedOnce)
{
    start();
    mac.pointer = {200, 100};
    choose(u"Help"_s, u"Contents"_s);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    ASSERT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_EQ(desktop->menus->popUps.first().location, QPointF(200, 800));
    EXPECT_EQ(tree.pressedTitles(), QStringList{u"Contents"_s});
    EXPECT_EQ(mac.callsOf(u"AXUIElementPerformAction"_s),
              (QList<QVariantList>{{QVariant::fromValue(tree.nodeTitled(u"Contents"_s)), u"AXPress"_s}}));
}

TEST_F(CoreOnMacTest, changedTrigger_isRegisteredAfresh)
{
    start();
    auto& defaults = UserDefaults::standardUserDefaults();
    defaults.setObjectForKey(quint64(0x140000), TWTriggerModifiersKey);
    defaults.setObjectForKey(quint64(7), TWTriggerCharacterKey);
    defaults.setObjectForKey(u"⌃⌘X"_s, TWTriggerKey);
    ASSERT_EQ(mac.registeredHotKeys().size(), 1);
    EXPECT_EQ(mac.registeredHotKeys().first().keyCode, 7u);
    EXPECT_EQ(mac.registeredHotKeys().first().modifiers, 0x1100u);
    EXPECT_EQ(mac.preferences.value(TWTriggerModifiersKey), 0x140000);
    // The handler is installed anew each time, and one press still pops up once.
    mac.pressHotKey({7, 0x1100});
    EXPECT_EQ(desktop->menus->popUps.size(), 1);
}

TEST_F(CoreOnMacTest, mouseButton_popsUpOnceTheEventHasGoneOn)
{
    start();
    UserDefaults::standardUserDefaults().setBoolForKey(true, TWEnableMouseButtonKey);
    mac.pointer = {10, 20};
    EXPECT_TRUE(mac.sendEvent(25)) << "the press reaches the application too";
    EXPECT_TRUE(desktop->menus->popUps.isEmpty());
    QCoreApplication::processEvents();
    ASSERT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_EQ(desktop->menus->popUps.first().location, QPointF(10, 880));
}

TEST_F(CoreOnMacTest, mouseTrigger_repairsItsTap)
{
    start();
    for (const quint32 reason : {0xFFFFFFFEu, 0xFFFFFFFFu}) {
        EXPECT_TRUE(mac.disableTap(reason)) << "the notice is swallowed";
        EXPECT_EQ(mac.enabledTaps(), 1);
    }
}

TEST_F(CoreOnMacTest, frontSwitch_rebuildsTheMirrorAfterItsPause)
{
    start();
    const auto browser = fake.addApplication(200, u"Browser"_s);
    fake.setMenuBar(browser, MenuFile::parse(u"History\n  Back\n"_s));
    fake.setFocusedApplication(browser);
    tree.show(mac, {browser});
    EXPECT_TRUE(mac.activate(200));
    EXPECT_EQ(desktop->clock.slept, QList<double>{double(0.65f)});
    mac.pressHotKey({6, 0x800});
    ASSERT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_TRUE(desktop->menus->popUps.first().menu->itemWithTitle(u"History"_s));
}

TEST_F(CoreOnMacTest, hotKeyWhileItsMenuIsOpen_opensNoOtherWhenThatHasClosed)
{
    start();
    desktop->menus->whileOpen = [this](const auto&) {
        if (desktop->menus->popUps.size() > 1)
            return;
        EXPECT_FALSE(mac.pressHotKey({6, 0x800}));
        EXPECT_FALSE(mac.pressHotKey({6, 0x800}));
    };
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(mac.deliverEvents(), 2);
    EXPECT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(desktop->menus->popUps.size(), 2);
}

TEST_F(CoreOnMacTest, frontSwitchWhileTheMenuIsOpen_closesItAndFillsTheNext)
{
    start();
    desktop->menus->whileOpen = [this](const auto&) {
        const auto browser = fake.addApplication(200, u"Browser"_s);
        fake.setMenuBar(browser, MenuFile::parse(u"History\n  Back\n"_s));
        fake.setFocusedApplication(browser);
        tree.show(mac, {browser});
        EXPECT_FALSE(mac.activate(200)) << "the system keeps the event";
        EXPECT_EQ(desktop->menus->cancels, 1);
        EXPECT_TRUE(desktop->clock.slept.isEmpty()) << "the mirror that is shown stays as it is";
    };
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_TRUE(desktop->menus->popUps.last().menu->itemWithTitle(u"File"_s));
    desktop->menus->whileOpen = nullptr;
    EXPECT_EQ(mac.deliverEvents(), 1);
    EXPECT_EQ(desktop->clock.slept, QList<double>{double(0.65f)});
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_TRUE(desktop->menus->popUps.last().menu->itemWithTitle(u"History"_s));
}

TEST_F(CoreOnMacTest, ourOwnMenuBar_isShownAsThatOfOthers)
{
    start();
    bringOurselvesToTheFront();
    choose(u"Tarnwick"_s, u"Hide Tarnwick"_s);
    for (int opening = 1; opening <= 3; ++opening) {
        EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
        EXPECT_EQ(tree.pressedTitles(), QStringList(opening, u"Hide Tarnwick"_s))
            << "the entry at the foot, which has the same name, is moved at each opening";
    }
}

TEST_F(CoreOnMacTest, pressInOurOwnMenuBar_mayRebuildTheMenuThatItIsIn)
{
    start();
    bringOurselvesToTheFront();
    const auto hide = tree.nodeTitled(u"Hide Tarnwick"_s);
    int performed = 0;
    hide->onPerform = [&] {
        ++performed;
        EXPECT_TRUE(mac.activate(EditorPid)) << "and with it goes the item whose press this is";
    };
    choose(u"Tarnwick"_s, u"Hide Tarnwick"_s);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(performed, 1);
    EXPECT_FALSE(desktop->menus->popUps.last().menu->itemWithTitle(u"Window"_s));
    hide->onPerform = nullptr;
}

TEST_F(CoreOnMacTest, ourOwnMenuBarThatNobodyAnswersFor_isWaitedForHalfASecondAnUpdate)
{
    start();
    double waited = 0;
    mac.answersItself = false;
    mac.whileWaiting = [&](double seconds) {
        waited += seconds;
        desktop->clock.advance(seconds);
    };
    bringOurselvesToTheFront();
    EXPECT_EQ(desktop->clock.slept.size(), 2) << "a menu that is empty is read again after the longer pause";
    EXPECT_DOUBLE_EQ(waited, 2 * 0.5);
    waited = 0;
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_DOUBLE_EQ(waited, 0) << "nothing is read at the moment of the trigger";
    EXPECT_FALSE(desktop->menus->popUps.last().menu->itemWithTitle(u"Window"_s));
}

TEST_F(CoreOnMacTest, menu_leavesActivationAndFocusWhereTheyAre)
{
    start();
    desktop->menus->whileOpen = [this](const auto&) { EXPECT_EQ(mac.activeProcess(), EditorPid); };
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    choose(u"Help"_s, u"Contents"_s);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(tree.pressedTitles(), QStringList{u"Contents"_s});
    EXPECT_EQ(mac.activeProcess(), EditorPid);
}

TEST_F(CoreOnMacTest, systemThatCannotTellOfSwitches_leavesTheControllerIdle)
{
    mac.fail(u"InstallEventHandler"_s, -50);
    start();
    EXPECT_TRUE(mac.callsOf(u"RegisterEventHotKey"_s).isEmpty());
    EXPECT_TRUE(desktop->statusBar.items().isEmpty());
    keptForLife = {u"CFMachPortCreateRunLoopSource"_s}; // the hot key never came to be
}

TEST_F(CoreOnMacTest, loginItem_followsTheSettingFromTheStart)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    start();
    const QString list = u"LSSharedFileListCreate 1"_s;
    EXPECT_EQ(
        mac.callsOf(u"LSSharedFileListCreate"_s),
        (QList<QVariantList>{{QVariant(), u"com.apple.LSSharedFileList.SessionLoginItems"_s, QVariant()}}));
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListCopySnapshot"_s), (QList<QVariantList>{{list, 0}}));
    // Resolve flags 3, no file; before the first, no name, no icon, our bundle, no properties.
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListItemResolve"_s),
              (QList<QVariantList>{{u"/Applications/Other.app"_s, 3, true, QVariant()}}));
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListInsertItemURL"_s),
              (QList<QVariantList>{{list, u"kLSSharedFileListItemBeforeFirst"_s, QVariant(), QVariant(),
                                    QUrl(u"file:///Applications/Tarnwick.app/"_s), QVariant(), QVariant()}}));
    EXPECT_EQ(mac.loginItems, (QStringList{u"/Applications/Tarnwick.app"_s, u"/Applications/Other.app"_s}));
    EXPECT_TRUE(mac.callsOf(u"registerAndReturnError"_s).isEmpty());
}

TEST_F(CoreOnMacTest, loginItemThatTheSharedFileListIgnores_isTheServices)
{
    mac.loginListIgnoresInsertions = true;
    mac.appServiceStatus = 0;
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    start();
    EXPECT_EQ(mac.appServiceStatus, 1);
    const QUrl us = QUrl::fromLocalFile(mac.bundlePath);
    PreferencesWindowController::setStartAtLoginEnabled(us, true);
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListInsertItemURL"_s).size(), 1) << "it is there already";
    EXPECT_EQ(mac.callsOf(u"registerAndReturnError"_s).size(), 1) << "it is there already";
    PreferencesWindowController::setStartAtLoginEnabled(us, false);
    EXPECT_EQ(mac.appServiceStatus, 0);
}

TEST_F(CoreOnMacTest, settingOff_removesTheLoginItem)
{
    mac.loginItems = {u"/Applications/Other.app"_s, u"/Applications/Tarnwick.app"_s};
    start();
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s});
}

TEST_F(CoreOnMacTest, loginItemWhereThereAreNoSharedFileLists_isTheServices)
{
    mac.takeAway(u"LSSharedFileListCreate"_s);
    mac.appServiceStatus = 0;
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    start();
    EXPECT_EQ(mac.appServiceStatus, 1);
    PreferencesWindowController::setStartAtLoginEnabled(QUrl::fromLocalFile(mac.bundlePath), true);
    EXPECT_EQ(mac.callsOf(u"registerAndReturnError"_s).size(), 1) << "once is enough";
    PreferencesWindowController::setStartAtLoginEnabled(QUrl::fromLocalFile(mac.bundlePath), false);
    PreferencesWindowController::setStartAtLoginEnabled(QUrl::fromLocalFile(mac.bundlePath), false);
    EXPECT_EQ(mac.appServiceStatus, 0);
    EXPECT_EQ(mac.callsOf(u"unregisterAndReturnError"_s).size(), 1);
}

TEST_F(CoreOnMacTest, startWithoutAccess_asksForItAndLeavesARunningProgram)
{
    mac.accessGranted = false;
    mac.processTrusted = false;
    desktop->alerts.answer = 1001;
    start();
    EXPECT_EQ(desktop->alerts.shown.size(), 1);
    EXPECT_EQ(mac.callsOf(u"AXAPIEnabled"_s).size(), 1);
    EXPECT_EQ(mac.callsOf(u"AXIsProcessTrustedWithOptions"_s),
              (QList<QVariantList>{{QVariantMap{{u"AXTrustedCheckOptionPrompt"_s, true}}}}));
    EXPECT_EQ(desktop->statusBar.items().size(), 1);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_EQ(mac.enabledTaps(), 0);

    // The user gives access while it runs: the next switch of the front application fills the menu.
    mac.processTrusted = true;
    desktop->clock.advance(2);
    EXPECT_EQ(mac.enabledTaps(), 1);
    EXPECT_TRUE(mac.activate(200));
    EXPECT_TRUE(mac.activate(EditorPid));
    mac.pressHotKey({6, 0x800});
    EXPECT_TRUE(desktop->menus->popUps.last().menu->itemWithTitle(u"File"_s));
}

TEST_F(CoreOnMacTest, leavingAtTheRequestForAccess_endsBeforeThereIsAStatusItem)
{
    mac.accessGranted = false;
    mac.processTrusted = false;
    desktop->alerts.answer = 1002;
    start();
    EXPECT_TRUE(desktop->application.terminating());
    EXPECT_TRUE(desktop->statusBar.items().isEmpty());
    EXPECT_TRUE(mac.callsOf(u"RegisterEventHotKey"_s).isEmpty());
    keptForLife.clear(); // the tap never came to be
}

TEST_F(CoreOnMacTest, buttonIdentifier_tapsAsTheTriggerDoes)
{
    TWMouseButtonIdentifier identifier;
    identifier.setupTap();
    keepSource();
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), TapAsBothMakeIt);
    EXPECT_EQ(mac.callsOf(u"CFMachPortCreateRunLoopSource"_s), (QList<QVariantList>{{QVariant(), Tap, 0}}));
    EXPECT_EQ(mac.callsOf(u"CFRunLoopAddSource"_s),
              (QList<QVariantList>{{u"CFRunLoopGetCurrent"_s, u"CFMachPortCreateRunLoopSource 1"_s,
                                    u"kCFRunLoopCommonModes"_s}}));
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{Tap, true}, {Tap, true}}))
        << "as it is made, and once more";
    EXPECT_TRUE(mac.sendEvent(25));
    identifier.otherMouseUp();
    EXPECT_EQ(identifier.buttonNumber(), 25u);
    EXPECT_TRUE(mac.disableTap(0xFFFFFFFE));
    EXPECT_EQ(mac.enabledTaps(), 0) << "this tap is not repaired";
    identifier.disableAndReleaseTap();
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s),
              (QList<QVariantList>{{Tap, true}, {Tap, true}, {Tap, false}}));
    EXPECT_EQ(mac.unreleased(), QStringList{u"CFMachPortCreateRunLoopSource"_s}) << "the tap is released";
    EXPECT_EQ(mac.orderOf({u"CGEventTapCreate"_s, u"CFMachPortCreateRunLoopSource"_s, u"CFRunLoopAddSource"_s,
                           u"CGEventTapEnable"_s}),
              (QStringList{u"CGEventTapCreate"_s, u"CFMachPortCreateRunLoopSource"_s, u"CFRunLoopAddSource"_s,
                           u"CGEventTapEnable"_s, u"CGEventTapEnable"_s, u"CGEventTapEnable"_s}));
}

TEST_F(CoreOnMacTest, buttonIdentifierSetUpTwice_leavesItsFirstTapInPlace)
{
    TWMouseButtonIdentifier identifier;
    identifier.setupTap();
    identifier.setupTap();
    keepSource();
    keepSource();
    const QString second = u"CGEventTapCreate 2"_s;
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), TapAsBothMakeIt + TapAsBothMakeIt);
    EXPECT_EQ(mac.enabledTaps(), 2);
    identifier.disableAndReleaseTap();
    EXPECT_EQ(
        mac.callsOf(u"CGEventTapEnable"_s),
        (QList<QVariantList>{{Tap, true}, {Tap, true}, {second, true}, {second, true}, {second, false}}));
    EXPECT_EQ(mac.enabledTaps(), 1) << "closing releases only the latest";
}

TEST_F(CoreOnMacTest, namesOfKeys_areTranslatedWithTheirNumbers)
{
    mac.inputSource->characters = {{{6, 0}, u"z"_s}, {{6, 0xA00}, u"¸"_s}, {{16, 0}, u"y"_s}};
    ASSERT_EQ(SRStringForKeyCode(6), u"Z"_s);
    mac.reset();
    mac.inputSource->characters = {{{6, 0}, u"zx"_s}, {{6, 0xA00}, u"q"_s}};
    EXPECT_EQ(SRStringForKeyCode(6), u"Z"_s) << "the first unit only";
    // The layout, key code, action display, modifier state, keyboard type, options, dead-key state, room.
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s),
              (QList<QVariantList>{{true, 6, 3, 0, 44, 0, 0, 4, true, true}}));
}

TEST_F(CoreOnMacTest, heldModifiers_reachTheTranslationUnshifted)
{
    struct Row
    {
        const char* held;
        quint64 cocoaFlags;
        quint32 state;
        QString typed;
        QString character;
    };
    const Row rows[] = {
        {"none", 0, 0, u"z"_s, u"Z"_s},
        {"Option", AlternateKeyMask, 0x800, u"ω"_s, u"Ω"_s},
        {"Shift", ShiftKeyMask, 0x200, u"zx"_s, u"Z"_s},
        {"Option and Shift", AlternateKeyMask | ShiftKeyMask, 0xA00, u"q"_s, u"Q"_s},
        {"all four", AlternateKeyMask | ShiftKeyMask | CommandKeyMask | ControlKeyMask, 0xA00, u"q"_s,
         u"Q"_s},
        {"Command and Control", CommandKeyMask | ControlKeyMask, 0, u"z"_s, u"Z"_s},
    };
    for (const Row& row : rows) {
        mac.inputSource->characters = {{{6, row.state}, row.typed}};
        EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(6, row.cocoaFlags), row.character) << row.held;
        EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s).last(),
                  (QVariantList{true, 6, 3, row.state, 44, 0, 0, 4, true, true}))
            << row.held;
    }
}

TEST_F(CoreOnMacTest, recording_switchesTheSystemsShortcutsOffOnce)
{
    SRRecorderCell cell;
    FakeRecorderCellView view;
    cell.setControlView(&view);
    cell.setCanCaptureGlobalHotKeys(true);
    Event space;
    space.type = Event::Type::KeyDown;
    space.keyCode = 49;
    space.characters = u" "_s;
    space.charactersIgnoringModifiers = u" "_s;
    EXPECT_TRUE(cell.performKeyEquivalent(space));
    ASSERT_TRUE(cell.isRecording());
    EXPECT_EQ(mac.callsOf(u"PushSymbolicHotKeyMode"_s), (QList<QVariantList>{{1}}));
    EXPECT_EQ(mac.symbolicModesPushed(), 1);
    Event escape = space;
    escape.keyCode = 53;
    escape.characters = u"\u001B"_s;
    escape.charactersIgnoringModifiers = escape.characters;
    EXPECT_TRUE(cell.performKeyEquivalent(escape));
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(mac.callsOf(u"PopSymbolicHotKeyMode"_s),
              (QList<QVariantList>{{u"PushSymbolicHotKeyMode 1"_s}}));
    EXPECT_EQ(mac.symbolicModesPushed(), 0);
}

/// Some function of the system fails whenever it is called.
class CoreOnFailingMacTest : public CoreOnMacTest, public ::testing::WithParamInterface<QString>
{
protected:
    void TearDown() override
    {
        program.reset();
        desktop.reset();
        keptForLife = mac.unreleased(); // what came to be, and nothing that must not stay
        CoreOnMacTest::TearDown();
    }
};

TEST_P(CoreOnFailingMacTest, program_goesOn)
{
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    mac.preferences.insert(TWEnableMouseButtonKey, true);
    mac.loginItems = {u"/Applications/Other.app"_s};
    mac.fail(GetParam());
    desktop->alerts.answer = Alert::SecondButtonReturn;
    start();
    choose(u"Help"_s, u"Contents"_s);
    for (int i = 0; i < 2; ++i) {
        mac.pressHotKey({6, 0x800});
        mac.sendEvent(25);
        QCoreApplication::processEvents();
        mac.activate(200);
        mac.activate(EditorPid);
        mac.changeInputSource({});
        UserDefaults::standardUserDefaults().setObjectForKey(u"˄Z"_s, TWTriggerKey);
    }
    EXPECT_FALSE(desktop->application.terminating());
    EXPECT_TRUE(desktop->application.delegate()->applicationShouldTerminate());
}

namespace {

/// All but the one whose failure ends the program.
QStringList survivableFunctions()
{
    QStringList functions = declaredFunctions();
    functions.removeAll(u"CGEventTapCreate"_s);
    return functions;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(EveryFunction, CoreOnFailingMacTest, ::testing::ValuesIn(survivableFunctions()),
                         [](const auto& function) { return function.param.toStdString(); });

} // namespace tarnwick
