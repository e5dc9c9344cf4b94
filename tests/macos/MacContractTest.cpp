// SPDX-License-Identifier: MIT
// What every adapter promises, of those for macOS.
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/hotkeys/CarbonHotKeys.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/macos/login/SharedFileListLoginItems.h"
#include "platform/macos/system/CFDefaultsStore.h"
#include "tests/contract/app/HotKeysContract.h"
#include "tests/contract/ax/AccessibilityContract.h"
#include "tests/contract/foundation/DefaultsStoreContract.h"
#include "tests/contract/mouse/EventTapsContract.h"
#include "tests/contract/prefs/LoginItemsContract.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/AxTree.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

using MacContract = MacTest;

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

} // namespace tarnwick
