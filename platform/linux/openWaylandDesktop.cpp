// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/globalkeys/waylandHotKeys.h"
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"
#include "platform/linux/keys/DesktopKeyNames.h"
#include "platform/linux/look/LinuxLook.h"
#include "platform/linux/session/LinuxSession.h"
#include "platform/linux/taps/OwnWindowTaps.h"
#include "platform/linux/tray/LinuxTrayHost.h"
#include "platform/linux/wayland/FixedWindowSizes.h"
#include "platform/linux/wayland/FrontMenuTarget.h"
#include "platform/linux/wayland/WaylandFrontApplication.h"
#include "platform/linux/wayland/WaylandKeyboard.h"
#include "platform/linux/wayland/WaylandKeyboardLayout.h"
#include "platform/linux/wayland/WaylandMenuPresenter.h"
#include "platform/linux/wayland/WaylandShortcutsInhibitor.h"
#include "platform/linux/workspace/LinuxWorkspace.h"
#include "platform/linux/workspace/PopUpRequest.h"
#include "platform/linux/x11/LinuxScreens.h"
#include "platform/linux/xdg/XdgLoginItems.h"
#include "platform/linux/xdg/XdgSession.h"
#include "platform/qt/application/QtAlerts.h"
#include "platform/qt/application/QtApplication.h"
#include "platform/qt/application/QtClock.h"
#include "platform/qt/application/QtEventSource.h"
#include "platform/qt/application/QtFonts.h"
#include "platform/qt/settings/QtDefaultsStore.h"
#include "platform/qt/tray/QtStatusBar.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QPointer>

#include <utility>

namespace tarnwick {

namespace {

using ExpectMenu = std::function<std::shared_ptr<void>()>;

/// Has whoever waits for it run once the application in front is known, whoever has told of it or not.
TriggerOrder afterFrontOf(SwitchAnnouncements& announcements, ExpectMenu expectMenu)
{
    return [announcements = QPointer(&announcements),
            expectMenu = std::move(expectMenu)](std::function<void()> then) {
        if (!announcements)
            return;
        auto expected = expectMenu();
        announcements->afterSwitchesSoFar(
            [announcements, then = std::move(then), expected = std::move(expected)] {
                if (announcements)
                    announcements->announceFrontThen([then, expected] { then(); });
            });
    };
}

std::unique_ptr<GlobalHotKeys> makeHotKeys(LinuxSession& session, SwitchAnnouncements& announcements,
                                           ExpectMenu expectMenu)
{
    auto hotKeys = waylandHotKeys(
        session.bus().connection(), QString::fromLocal8Bit(SessionBus::address()),
        {compositorOfSession(), afterFrontOf(announcements, std::move(expectMenu)), &textOfCurrentLayout});
    QObject::connect(&session.bus(), &SessionBusWatch::changed, hotKeys.get(),
                     [keys = hotKeys.get(), &bus = session.bus()] { keys->setBus(bus.connection()); });
    session.whenAskedForMenu([keys = QPointer(hotKeys.get())](PopUpTrigger::Kind by) {
        if (keys)
            keys->menuWasAskedFor(by);
    });
    return hotKeys;
}

/// To the compositor, on which a menu can be shown; null where none can.
std::shared_ptr<CompositorConnection> connectionForMenus()
{
    std::shared_ptr<CompositorConnection> connection = CompositorConnection::open();
    return connection && WaylandMenuPresenter::canShowOn(*connection) ? connection : nullptr;
}

} // namespace

std::optional<bool> canRunOnWayland()
{
    return connectionForMenus() != nullptr;
}

std::optional<Inspection> openWaylandInspection(int& argc, char** argv)
{
    const auto connection = connectionForMenus();
    if (!connection)
        return std::nullopt;
    return makeInspection(argc, argv, "wayland", [&connection](AtspiActiveWindow& inTree) {
        return WaylandFrontApplication::make(inTree, Toplevels::open(connection));
    });
}

std::optional<Desktop> openWaylandDesktop(int& argc, char** argv)
{
    const auto connection = connectionForMenus();
    if (!connection)
        return std::nullopt;
    std::optional<Desktop> opened{Desktop()};
    Desktop& desktop = *opened;
    auto session = std::make_unique<LinuxSession>(argc, argv, LinuxSession::Part::Tarnwick, "wayland");
    new FixedWindowSizes(*qApp);
    connection->follow();
    const std::shared_ptr<CompositorConnection> toolkits = CompositorConnection::ofToolkit();
    session->setCompositorIsGone([toolkits] { return toolkits->isBroken(); });
    const auto keyboard = std::make_shared<WaylandKeyboard>(toolkits);
    const auto inhibitor = std::make_shared<WaylandShortcutsInhibitor>(toolkits, keyboard);
    const auto keymap = [keyboard] { return keyboard->keymap(); };
    const QtEventConverter converter = makeEventConverter(keymap);
    desktop.application = std::make_unique<QtApplication>(converter);
    desktop.clock = std::make_unique<QtClock>();
    desktop.defaultsStore = std::make_unique<QtDefaultsStore>(QtDefaultsStore::standardPath());
    desktop.fonts = std::make_unique<QtFonts>();
    desktop.screens = std::make_unique<LinuxScreens>();
    desktop.alerts = std::make_unique<QtAlerts>();
    desktop.eventSource = std::make_unique<QtEventSource>(converter);
    const auto toplevels = Toplevels::open(connection);
    const auto reading = std::make_shared<LinuxReading>(
        [&toplevels](AtspiActiveWindow& inTree) { return WaylandFrontApplication::make(inTree, toplevels); });
    auto workspace = std::make_unique<LinuxWorkspace>(
        reading, std::make_unique<LinuxLook>(xdg_session::currentDesktops(), QDBusConnection::sessionBus()));
    auto presenter = std::make_unique<WaylandMenuPresenter>(
        connection, std::make_unique<FrontMenuTarget>(*reading, toplevels));
    static_cast<WaylandFrontApplication&>(*reading->front)
        .setExcuse([presenter = QPointer(presenter.get())] { return presenter && presenter->hasKeyboard(); },
                   [toolkits](std::function<void()> then) { toolkits->afterEventsSoFar(std::move(then)); });
    const auto expectMenu = [presenter = QPointer(presenter.get())]() -> std::shared_ptr<void> {
        return presenter ? presenter->expectMenu() : nullptr;
    };
    session->setPopUpRequest(std::make_unique<PopUpRequest>(workspace->announcements(), *reading->front,
                                                            PopUpRequest::Surroundings{{}, {}, expectMenu}));
    auto trayHost = std::make_unique<LinuxTrayHost>(session->bus().connection());
    QObject::connect(&session->bus(), &SessionBusWatch::changed, trayHost.get(),
                     [host = trayHost.get(), &bus = session->bus()] { host->setBus(bus.connection()); });
    auto hotKeys = makeHotKeys(*session, workspace->announcements(), expectMenu);
    desktop.session = std::move(session);
    desktop.workspace = std::move(workspace);
    desktop.accessibility = std::make_unique<AtspiAccessibility>(reading);
    desktop.loginItems = XdgLoginItems::ofSession();
    desktop.eventTaps = std::make_unique<OwnWindowTaps>();
    desktop.triggerAdvice = hotKeys.get();
    desktop.keyNames = std::make_unique<DesktopKeyNames>();
    desktop.symbolicHotKeys = std::make_unique<LinuxSymbolicHotKeys>(LinuxSymbolicHotKeys::Desktop{
        DesktopShortcutStores::ofSession(), xdg_session::currentDesktops(), keymap,
        [](quint32, quint32) { return false; }, [inhibitor] { return inhibitor->take(); },
        [inhibitor] { inhibitor->release(); }});
    desktop.keyboardLayout = std::make_unique<WaylandKeyboardLayout>(keyboard);
    desktop.keyboardLayout->addSelectedKeyboardInputSourceChangedObserver([keys = QPointer(hotKeys.get())] {
        if (keys)
            keys->layoutChanged();
    });
    desktop.hotKeys = std::move(hotKeys);
    desktop.menuPresenter = std::move(presenter);
    desktop.statusBar = std::make_unique<QtStatusBar>(std::move(trayHost), symbolicIconName());
    return opened;
}

} // namespace tarnwick
