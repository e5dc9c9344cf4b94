// SPDX-License-Identifier: MIT
// The core on the adapters for macOS: what reaches the system from there, and what comes back.
#include "app/MainInterface.h"
#include "app/SettingsKeys.h"
#include "foundation/UserDefaults.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "mouse/TWMouseButtonIdentifier.h"
#include "platform/macos/AXAccessibility.h"
#include "platform/macos/CFDefaultsStore.h"
#include "platform/macos/CGScreens.h"
#include "platform/macos/CarbonFrontSwitch.h"
#include "platform/macos/CarbonHotKeys.h"
#include "platform/macos/CarbonSymbolicHotKeys.h"
#include "platform/macos/MacMenuPresenter.h"
#include "platform/macos/QuartzEventTaps.h"
#include "platform/macos/SharedFileListLoginItems.h"
#include "platform/macos/TISKeyboardLayout.h"
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
#include "tests/macos/AxTree.h"
#include "tests/macos/MacTest.h"
#include "tests/macos/PlayedMenus.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// The workspace of a fake, with the front switches of the system.
class SwitchingWorkspace final : public Workspace
{
public:
    FakeWorkspace fake;

    [[nodiscard]] std::optional<ActiveApplication> activeApplication() const override
    {
        return fake.activeApplication();
    }
    [[nodiscard]] bool installAppFrontSwitchedHandler(std::function<void()> switched) override
    {
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
    MacDesktop()
    {
        Accessibility::setShared(&accessibility);
        Alerts::setShared(&alerts);
        Application::setShared(&application);
        Clock::setShared(&clock);
        DefaultsStore::setShared(&store);
        EventTaps::setShared(&taps);
        Fonts::setShared(&fonts);
        HotKeys::setShared(&hotKeys);
        KeyboardLayout::setShared(&keyboard());
        LoginItems::setShared(&loginItems);
        MenuPresenter::setShared(&presenter);
        Screens::setShared(&screens);
        StatusBar::setShared(&statusBar);
        SymbolicHotKeys::setShared(&symbolicHotKeys);
        Workspace::setShared(&workspace);
    }
    ~MacDesktop()
    {
        Accessibility::setShared(nullptr);
        Alerts::setShared(nullptr);
        Application::setShared(nullptr);
        Clock::setShared(nullptr);
        DefaultsStore::setShared(nullptr);
        EventTaps::setShared(nullptr);
        Fonts::setShared(nullptr);
        HotKeys::setShared(nullptr);
        LoginItems::setShared(nullptr);
        MenuPresenter::setShared(nullptr);
        Screens::setShared(nullptr);
        StatusBar::setShared(nullptr);
        SymbolicHotKeys::setShared(nullptr);
        Workspace::setShared(nullptr);
    }
    MacDesktop(const MacDesktop&) = delete;
    MacDesktop& operator=(const MacDesktop&) = delete;

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
    SharedFileListLoginItems loginItems;
};

} // namespace

class CoreOnMacTest : public MacTest
{
protected:
    static constexpr qint64 EditorPid = 100;

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
        desktop->workspace.fake.active = Workspace::ActiveApplication{u"Editor"_s, EditorPid};
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
        keptForLife.append(u"CFMachPortCreateRunLoopSource"_s);
        program->finishLaunching();
    }

    /// The user chooses "Contents" in "Help" of the next menu that pops up.
    void chooseContents()
    {
        desktop->menus->whileOpen = [this](const NativeMenus::Chosen& chosen) {
            const auto menu = desktop->menus->popUps.last().menu;
            const auto open = [](Menu& opening) {
                opening.delegate()->menuNeedsUpdate(opening);
                opening.update();
            };
            open(*menu);
            const auto help = menu->itemWithTitle(u"Help"_s)->submenu();
            open(*help);
            chosen(help, help->itemWithTitle(u"Contents"_s));
        };
    }

    FakeAccessibility fake;
    AxTree tree{fake};
    std::unique_ptr<MacDesktop> desktop;
    std::unique_ptr<MainInterface> program;
};

TEST_F(CoreOnMacTest, start_installsEverythingWithItsNumbers)
{
    start();
    // The mouse trigger: location, placement, options, events of interest; order; enabled.
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), (QList<QVariantList>{{2, 0, 0, 0x2000000ull}}));
    EXPECT_EQ(mac.callsOf(u"CFMachPortCreateRunLoopSource"_s), (QList<QVariantList>{{true, 0}}));
    EXPECT_EQ(mac.callsOf(u"CFRunLoopAddSource"_s),
              (QList<QVariantList>{{true, u"kCFRunLoopCommonModes"_s}}));
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{true}}));
    // The front switch ("appl", 7), then the hot key's handler ("keyb", 5).
    EXPECT_EQ(mac.callsOf(u"InstallEventHandler"_s),
              (QList<QVariantList>{{true, 1, 0x6170706Cu, 7, true}, {true, 1, 0x6B657962u, 5, true}}));
    // Option-Z: key code, modifiers, signature "tzq1", id, the application target, options.
    EXPECT_EQ(mac.callsOf(u"RegisterEventHotKey"_s),
              (QList<QVariantList>{{6, 0x800, 0x747A7131, 1, true, 0}}));
}

TEST_F(CoreOnMacTest, end_takesTheTapAwayAndKeepsNothingButItsSource)
{
    start();
    EXPECT_TRUE(desktop->application.delegate()->applicationShouldTerminate());
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{true}, {false}}));
    EXPECT_EQ(mac.enabledTaps(), 0);
    program.reset();
    desktop.reset();
    EXPECT_EQ(mac.unreleased(), QStringList{u"CFMachPortCreateRunLoopSource"_s});
}

TEST_F(CoreOnMacTest, hotKey_popsTheMirrorUpAtThePointer_andAChoiceIsPressedOnce)
{
    start();
    mac.pointer = {200, 100};
    chooseContents();
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    ASSERT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_EQ(desktop->menus->popUps.first().location, QPointF(200, 800));
    EXPECT_EQ(tree.pressedTitles(), QStringList{u"Contents"_s});
    EXPECT_EQ(mac.callsOf(u"AXUIElementPerformAction"_s), (QList<QVariantList>{{u"AXPress"_s}}));
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
    desktop->workspace.fake.active = Workspace::ActiveApplication{u"Browser"_s, 200};
    mac.switchFront();
    EXPECT_EQ(desktop->clock.slept, QList<double>{double(0.65f)});
    mac.pressHotKey({6, 0x800});
    ASSERT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_TRUE(desktop->menus->popUps.first().menu->itemWithTitle(u"History"_s));
}

TEST_F(CoreOnMacTest, systemThatCannotTellOfSwitches_leavesTheControllerIdle)
{
    mac.fail(u"InstallEventHandler"_s, -50);
    start();
    EXPECT_TRUE(mac.callsOf(u"RegisterEventHotKey"_s).isEmpty());
    EXPECT_TRUE(desktop->statusBar.items().isEmpty());
}

TEST_F(CoreOnMacTest, loginItem_followsTheSettingFromTheStart)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    mac.preferences.insert(TWLaunchOnLoginKey, true);
    start();
    // Resolve flags 3; before the first, no name, no icon, our bundle, no properties.
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListItemResolve"_s), (QList<QVariantList>{{3, true}}));
    EXPECT_EQ(mac.callsOf(u"LSSharedFileListInsertItemURL"_s),
              (QList<QVariantList>{{true, true, true, u"file:///Applications/Tarnwick.app/"_s, true, true}}));
    EXPECT_EQ(mac.loginItems, (QStringList{u"/Applications/Tarnwick.app"_s, u"/Applications/Other.app"_s}));
}

TEST_F(CoreOnMacTest, settingOff_removesTheLoginItem)
{
    mac.loginItems = {u"/Applications/Other.app"_s, u"/Applications/Tarnwick.app"_s};
    start();
    EXPECT_EQ(mac.loginItems, QStringList{u"/Applications/Other.app"_s});
}

TEST_F(CoreOnMacTest, startWithoutAccess_asksForItAndLeavesARunningProgram)
{
    mac.accessGranted = false;
    mac.processTrusted = false;
    desktop->alerts.answer = 1001;
    start();
    EXPECT_EQ(desktop->alerts.shown.size(), 1);
    EXPECT_EQ(mac.callsOf(u"AXAPIEnabled"_s).size(), 1);
    EXPECT_EQ(mac.callsOf(u"AXIsProcessTrustedWithOptions"_s).size(), 1);
    EXPECT_EQ(desktop->statusBar.items().size(), 1);
    EXPECT_TRUE(mac.pressHotKey({6, 0x800}));
    EXPECT_EQ(desktop->menus->popUps.size(), 1);
    EXPECT_EQ(mac.enabledTaps(), 0);

    // The user gives access while it runs: the next switch of the front application fills the menu.
    mac.processTrusted = true;
    desktop->clock.advance(2);
    EXPECT_EQ(mac.enabledTaps(), 1);
    mac.switchFront();
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
    keptForLife.append(u"CFMachPortCreateRunLoopSource"_s);
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), (QList<QVariantList>{{2, 0, 0, 0x2000000ull}}));
    EXPECT_EQ(mac.callsOf(u"CFRunLoopAddSource"_s),
              (QList<QVariantList>{{true, u"kCFRunLoopCommonModes"_s}}));
    EXPECT_TRUE(mac.sendEvent(25));
    identifier.otherMouseUp();
    EXPECT_EQ(identifier.buttonNumber(), 25u);
    EXPECT_TRUE(mac.disableTap(0xFFFFFFFE));
    EXPECT_EQ(mac.enabledTaps(), 0) << "this tap is not repaired";
    identifier.disableAndReleaseTap();
}

TEST_F(CoreOnMacTest, namesOfKeys_areTranslatedWithTheirNumbers)
{
    mac.inputSource->characters = {{{6, 0}, u"z"_s}, {{6, 0xA00}, u"¸"_s}, {{16, 0}, u"y"_s}};
    ASSERT_EQ(SRStringForKeyCode(6), u"Z"_s);
    mac.reset();
    mac.inputSource->characters = {{{6, 0}, u"zx"_s}, {{6, 0xA00}, u"q"_s}};
    EXPECT_EQ(SRStringForKeyCode(6), u"Z"_s) << "the first unit only";
    // Key code, action display, modifier state, keyboard type, options, dead-key state, room.
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s), (QList<QVariantList>{{6, 3, 0, 44, 0, 0, 4}}));
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(6, AlternateKeyMask | ShiftKeyMask | CommandKeyMask),
              u"Q"_s);
    EXPECT_EQ(mac.callsOf(u"UCKeyTranslate"_s).last(), (QVariantList{6, 3, 0xA00, 44, 0, 0, 4}));
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
    EXPECT_EQ(mac.callsOf(u"PopSymbolicHotKeyMode"_s).size(), 1);
    EXPECT_EQ(mac.symbolicModesPushed(), 0);
}

} // namespace tarnwick
