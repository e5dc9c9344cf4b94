// SPDX-License-Identifier: MIT
// What every adapter promises, of those for macOS.
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/hotkeys/CarbonHotKeys.h"
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"
#include "platform/macos/hotkeys/MacKeyboard.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/macos/hotkeys/TISKeyboardLayout.h"
#include "platform/macos/login/SharedFileListLoginItems.h"
#include "platform/macos/menu/MacMenuPresenter.h"
#include "platform/macos/session/MacApplication.h"
#include "platform/macos/system/CFDefaultsStore.h"
#include "platform/macos/workspace/CGScreens.h"
#include "tests/contract/app/HotKeysContract.h"
#include "tests/contract/ax/AccessibilityContract.h"
#include "tests/contract/foundation/ApplicationContract.h"
#include "tests/contract/foundation/DefaultsStoreContract.h"
#include "tests/contract/foundation/ScreensContract.h"
#include "tests/contract/menu/MenuPresenterContract.h"
#include "tests/contract/mouse/EventTapsContract.h"
#include "tests/contract/prefs/LoginItemsContract.h"
#include "tests/contract/shortcut/SymbolicHotKeysContract.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/AxTree.h"
#include "tests/macos/MacTest.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace tarnwick {

using MacContract = MacTest;

/// The system's menus as a user goes through them, telling whom the system tells.
class UsedMenus final : public NativeMenus
{
public:
    QStringList way;
    std::function<void()> whileOpen;

    void popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& /*item*/,
               QPointF /*location*/, const Chosen& chosen) override
    {
        _cancelled = false;
        QList<std::shared_ptr<Menu>> open;
        std::shared_ptr<MenuItem> choice;
        for (std::shared_ptr<Menu> next = menu; next;) {
            _open(*next);
            open.append(std::exchange(next, nullptr));
            choice = way.value(open.size() - 1).isEmpty()
                         ? nullptr
                         : open.last()->itemWithTitle(way.at(open.size() - 1));
            if (choice)
                next = choice->submenu();
        }
        if (whileOpen)
            whileOpen();
        for (const auto& each : std::as_const(open))
            each->delegate()->menuDidClose(*each);
        if (choice && choice->isEnabled() && !_cancelled)
            chosen(open.last(), choice);
    }

    void cancel() override { _cancelled = true; }

private:
    static void _open(Menu& menu)
    {
        menu.delegate()->menuNeedsUpdate(menu);
        menu.update();
        menu.delegate()->menuWillOpen(menu);
    }

    bool _cancelled = false;
};

TEST_F(MacContract, accessibility_keepsTheContract)
{
    FakeClock clock;
    const SharedPorts sharedPorts(clock);
    FakeAccessibility fake;
    const auto editor = fake.addApplication(1234, u"Editor"_s);
    fake.setMenuBar(editor, MenuFile::read(u"editor"_s));
    fake.setFocusedApplication(editor);
    AxTree tree(fake);
    tree.show(mac, {editor});
    mac.accessGranted = true;
    mac.processTrusted = true;
    {
        AXAccessibility accessibility;
        AccessibilityContract contract({.accessibility = accessibility,
                                        .processIdentifier = 1234,
                                        .title = u"Editor"_s,
                                        .pressed = [&tree](qsizetype) { return tree.pressedTitles(); }});
        contract.run();
    }
}

TEST_F(MacContract, defaultsStore_keepsTheContract)
{
    defaultsStoreContract([] { return std::make_unique<CFDefaultsStore>(); });
}

TEST_F(MacContract, loginItems_keepTheContract)
{
    mac.loginItems = {u"/Applications/Other.app"_s};
    SharedFileListLoginItems items;
    loginItemsContract(items, QUrl::fromLocalFile(u"/Applications/Tarnwick.app"_s),
                       QUrl::fromLocalFile(u"/Applications/Other.app"_s));
}

TEST_F(MacContract, hotKeys_keepTheContract)
{
    CarbonHotKeys hotKeys;
    hotKeysContract(hotKeys, [this] { mac.pressHotKey({96, 0x800}); });
}

TEST_F(MacContract, eventTaps_keepTheContract)
{
    {
        QuartzEventTaps taps;
        eventTapsContract(taps, [this] { mac.sendEvent(25); });
    }
    keptForLife = QStringList(3, u"CFMachPortCreateRunLoopSource"_s); // three of the four taps are scheduled
}

TEST_F(MacContract, symbolicHotKeys_keepTheContract)
{
    CarbonSymbolicHotKeys hotKeys;
    SymbolicHotKeysContract contract({.hotKeys = hotKeys,
                                      .setDesktops =
                                          [this](const SymbolicHotKeysContract::Shortcuts& shortcuts) {
                                              mac.systemHotKeys.clear();
                                              for (const auto& [code, modifiers] : shortcuts)
                                                  mac.systemHotKeys.append({true, code, modifiers});
                                          },
                                      .makeUnreadable = [this] { mac.fail(u"CopySymbolicHotKeys"_s, -50); },
                                      .switchedOff = [this] { return mac.symbolicModesPushed() > 0; }});
    contract.run();
}

TEST_F(MacContract, screens_keepTheContract)
{
    const CGScreens screens;
    const QList<QList<QRectF>> arrangements{
        {QRectF(0, 0, 1440, 900)},
        {QRectF(0, 0, 1920, 1080), QRectF(-480, -100, 480, 120), QRectF(1920, 300, 800, 600)},
        {},
    };
    for (const auto& displays : arrangements) {
        mac.displays = displays;
        screensContract(screens, displays, [this](QPointF point) { mac.pointer = point; });
    }
}

TEST_F(MacContract, menuPresenter_keepsTheContract)
{
    FakeApplication application;
    Application::setShared(&application);
    {
        auto owned = std::make_unique<UsedMenus>();
        UsedMenus& menus = *owned;
        MacMenuPresenter presenter(std::move(owned));
        MenuPresenterContract contract(
            {.presenter = presenter, .user = [&menus](const QStringList& way, const auto& whileOpen) {
                 menus.way = way;
                 menus.whileOpen = whileOpen;
             }});
        contract.run();
    }
    Application::setShared(nullptr);
}

TEST_F(MacContract, application_keepsTheContract)
{
    TISKeyboardLayout layout;
    MacApplication application(makeMacEventConverter(layout));
    QWidget window;
    window.show();
    ApplicationContract contract(application, [&window](Event::Type type) {
        const QPointF point(5, 5);
        const bool down = type == Event::Type::LeftMouseDown;
        QMouseEvent event(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, point,
                          window.mapToGlobal(point), Qt::LeftButton, down ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    });
    contract.run();
    // The toolkit's loops run again from the start of the next one of the program only.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
}

} // namespace tarnwick
