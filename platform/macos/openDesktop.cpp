// SPDX-License-Identifier: MIT
#include "app/Desktop.h"
#include "platform/macos/AXAccessibility.h"
#include "platform/macos/AppKitAlerts.h"
#include "platform/macos/AppKitMenus.h"
#include "platform/macos/AppKitStatusBar.h"
#include "platform/macos/AppKitWorkspace.h"
#include "platform/macos/AppServiceLoginItems.h"
#include "platform/macos/CFDefaultsStore.h"
#include "platform/macos/CGScreens.h"
#include "platform/macos/CarbonHotKeys.h"
#include "platform/macos/CarbonSymbolicHotKeys.h"
#include "platform/macos/MacApplication.h"
#include "platform/macos/MacKeyboard.h"
#include "platform/macos/MacMenuPresenter.h"
#include "platform/macos/MacSession.h"
#include "platform/macos/QuartzEventTaps.h"
#include "platform/macos/SharedFileListLoginItems.h"
#include "platform/macos/TISKeyboardLayout.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtEventSource.h"
#include "platform/qt/QtFonts.h"

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

} // namespace tarnwick
