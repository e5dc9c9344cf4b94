// SPDX-License-Identifier: MIT
#include "app/Desktop.h"
#include "platform/macos/accessibility/AXAccessibility.h"
#include "platform/macos/hotkeys/CarbonHotKeys.h"
#include "platform/macos/hotkeys/CarbonSymbolicHotKeys.h"
#include "platform/macos/hotkeys/MacKeyboard.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/macos/hotkeys/TISKeyboardLayout.h"
#include "platform/macos/login/AppServiceLoginItems.h"
#include "platform/macos/login/SharedFileListLoginItems.h"
#include "platform/macos/menu/AppKitMenus.h"
#include "platform/macos/menu/MacMenuPresenter.h"
#include "platform/macos/session/AppKitAlerts.h"
#include "platform/macos/session/MacApplication.h"
#include "platform/macos/session/MacSession.h"
#include "platform/macos/system/CFDefaultsStore.h"
#include "platform/macos/tray/AppKitStatusBar.h"
#include "platform/macos/workspace/AppKitWorkspace.h"
#include "platform/macos/workspace/CGScreens.h"
#include "platform/qt/application/QtClock.h"
#include "platform/qt/application/QtEventSource.h"
#include "platform/qt/application/QtFonts.h"

namespace tarnwick {

Desktop openDesktop(int& argc, char** argv)
{
    Desktop desktop;
    desktop.session = std::make_unique<MacSession>(argc, argv);
    desktop.keyboardLayout = std::make_unique<TISKeyboardLayout>();
    const QtEventConverter converter = makeMacEventConverter(*desktop.keyboardLayout);
    desktop.application = std::make_unique<MacApplication>(converter);
    desktop.clock = std::make_unique<QtClock>();
    desktop.defaultsStore = std::make_unique<CFDefaultsStore>();
    desktop.fonts = std::make_unique<QtFonts>();
    desktop.screens = std::make_unique<CGScreens>();
    desktop.alerts = std::make_unique<AppKitAlerts>();
    desktop.eventSource = std::make_unique<QtEventSource>(converter);
    desktop.accessibility = std::make_unique<AXAccessibility>();
    desktop.workspace = std::make_unique<AppKitWorkspace>();
    desktop.loginItems = std::make_unique<SharedFileListLoginItems>(std::make_unique<AppServiceLoginItems>());
    desktop.eventTaps = std::make_unique<QuartzEventTaps>();
    desktop.hotKeys = std::make_unique<CarbonHotKeys>();
    desktop.symbolicHotKeys = std::make_unique<CarbonSymbolicHotKeys>();
    desktop.menuPresenter = std::make_unique<MacMenuPresenter>(std::make_unique<AppKitMenus>());
    desktop.statusBar = std::make_unique<AppKitStatusBar>();
    return desktop;
}

QString desktopOfThisBuild()
{
    return {};
}

} // namespace tarnwick
