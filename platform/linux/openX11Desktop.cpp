// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"
#include "platform/linux/hotkeys/X11EventTaps.h"
#include "platform/linux/hotkeys/X11HotKeys.h"
#include "platform/linux/hotkeys/X11KeyboardLayout.h"
#include "platform/linux/hotkeys/X11ShortcutsInhibitor.h"
#include "platform/linux/input/X11KeyboardGrab.h"
#include "platform/linux/keys/DesktopKeyNames.h"
#include "platform/linux/keys/KeyCodes.h"
#include "platform/linux/look/LinuxLook.h"
#include "platform/linux/popup/QMenuPresenter.h"
#include "platform/linux/session/LinuxSession.h"
#include "platform/linux/tray/LinuxTrayHost.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/workspace/PopUpRequest.h"
#include "platform/linux/workspace/X11FrontApplication.h"
#include "platform/linux/workspace/XWaylandBackdrop.h"
#include "platform/linux/x11/LinuxScreens.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/linux/xdg/XdgLoginItems.h"
#include "platform/linux/xdg/XdgSession.h"
#include "platform/qt/application/QtAlerts.h"
#include "platform/qt/application/QtApplication.h"
#include "platform/qt/application/QtClock.h"
#include "platform/qt/application/QtEventSource.h"
#include "platform/qt/application/QtFonts.h"
#include "platform/qt/settings/QtDefaultsStore.h"
#include "platform/qt/tray/QtStatusBar.h"

#include <QDBusConnection>
#include <QKeyEvent>
#include <QPointer>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

LinuxSymbolicHotKeys::Desktop symbolicHotKeysDesktop(const X11KeyboardLayout& layout,
                                                     const X11HotKeys& hotKeys)
{
    const auto inhibitor = std::make_shared<X11ShortcutsInhibitor>();
    return {
        DesktopShortcutStores::ofSession(),
        xdg_session::currentDesktops(),
        [&layout] { return layout.keymap(); },
        [&hotKeys](quint32 keyCode, quint32 modifiers) { return hotKeys.heldElsewhere(keyCode, modifiers); },
        [inhibitor] { return inhibitor->take(); },
        [inhibitor] { inhibitor->release(); },
    };
}

/// Behind a menu over a native window: what the pointer is seen by, and what the keys come to.
struct Backdrop
{
    XWaylandBackdrop window;
    X11KeyboardStandIn keyboard{static_cast<xcb_window_t>(window.winId())};
};

std::shared_ptr<void> makeBackdrop(bool pointerIsTold)
{
    auto backdrop = std::make_shared<Backdrop>();
    if (!pointerIsTold)
        backdrop->window.waitForPointer();
    return backdrop;
}

} // namespace

Desktop openX11Desktop(int& argc, char** argv)
{
    Desktop desktop;
    auto session = std::make_unique<LinuxSession>(argc, argv, LinuxSession::Part::Tarnwick);
    auto layout = std::make_unique<X11KeyboardLayout>();
    const QtEventConverter converter =
        makeEventConverter([layout = layout.get()] { return layout->keymap(); });
    desktop.application = std::make_unique<QtApplication>(converter);
    desktop.clock = std::make_unique<QtClock>();
    desktop.defaultsStore = std::make_unique<QtDefaultsStore>(QtDefaultsStore::standardPath());
    desktop.fonts = std::make_unique<QtFonts>();
    auto screens = std::make_unique<LinuxScreens>();
    const auto setPointer = [screens = screens.get()](std::optional<QPoint> pixel) {
        screens->setPointer(pixel);
    };
    desktop.screens = std::move(screens);
    desktop.alerts = std::make_unique<QtAlerts>();
    desktop.eventSource = std::make_unique<QtEventSource>(converter);
    const auto reading = std::make_shared<LinuxReading>(&X11FrontApplication::make);
    auto workspace = std::make_unique<LinuxWorkspace>(
        reading, std::make_unique<LinuxLook>(xdg_session::currentDesktops(), QDBusConnection::sessionBus()));
    workspace->setBuiltWithoutWayland(!canRunOnWayland());
    SwitchAnnouncements& announcements = workspace->announcements();
    session->setPopUpRequest(std::make_unique<PopUpRequest>(
        announcements, *reading->front, PopUpRequest::Surroundings{&makeBackdrop, setPointer, {}}));
    auto trayHost = std::make_unique<LinuxTrayHost>(session->bus().connection());
    QObject::connect(&session->bus(), &SessionBusWatch::changed, trayHost.get(),
                     [host = trayHost.get(), &bus = session->bus()] { host->setBus(bus.connection()); });
    const TriggerOrder afterSwitches = [announcements =
                                            QPointer(&announcements)](std::function<void()> then) {
        if (announcements)
            announcements->afterSwitchesSoFar(std::move(then));
    };
    desktop.session = std::move(session);
    desktop.workspace = std::move(workspace);
    desktop.accessibility = std::make_unique<AtspiAccessibility>(reading);
    desktop.loginItems = XdgLoginItems::ofSession();
    desktop.eventTaps = std::make_unique<X11EventTaps>(afterSwitches);
    auto hotKeys = std::make_unique<X11HotKeys>(afterSwitches);
    auto symbolicHotKeys = std::make_unique<LinuxSymbolicHotKeys>(symbolicHotKeysDesktop(*layout, *hotKeys));
    QObject::connect(reading->front.get(), &FrontApplication::changed, symbolicHotKeys.get(),
                     [keys = symbolicHotKeys.get()](const FrontWindow& front) {
                         keys->frontChanged(front.processIdentifier);
                     });
    desktop.keyNames = std::make_unique<DesktopKeyNames>();
    desktop.symbolicHotKeys = std::move(symbolicHotKeys);
    desktop.hotKeys = std::move(hotKeys);
    desktop.keyboardLayout = std::move(layout);
    desktop.menuPresenter = std::make_unique<QMenuPresenter>();
    desktop.statusBar = std::make_unique<QtStatusBar>(std::move(trayHost), symbolicIconName());
    return desktop;
}

} // namespace tarnwick
