// SPDX-License-Identifier: MIT
#include "platform/linux/session/LinuxSession.h"

#include "foundation/ApplicationDelegate.h"
#include "foundation/Failure.h"
#include "platform/linux/session/SessionInstance.h"
#include "platform/linux/session/TerminationSignals.h"
#include "platform/linux/workspace/PopUpRequest.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/qt/application/VisibleWindows.h"
#include "platform/qt/menu/PopUpBeginning.h"

#include <QSessionManager>
#include <QThread>
#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// Null when nothing may be asked of it any more.
ApplicationDelegate* delegateAtWork()
{
    Application& application = Application::shared();
    return application.terminating() ? nullptr : application.delegate();
}

void reopen()
{
    if (ApplicationDelegate* delegate = delegateAtWork()) [[maybe_unused]]
        const bool more = delegate->applicationShouldHandleReopenHasVisibleWindows(anyWindowVisible());
}

void popUpMenu()
{
    ApplicationDelegate* delegate = delegateAtWork();
    const QString action = u"popUpMenuAtMouseLocation"_s;
    if (delegate && delegate->respondsTo(action))
        delegate->perform(action, nullptr);
}

void popUpMenuByPointer()
{
    const PopUpTrigger::Scope byPointer(PopUpTrigger::Kind::Pointer);
    popUpMenu();
}

void searchMenu()
{
    const PopUpBeginning::Scope inSearch(PopUpBeginning::Kind::Search);
    popUpMenu();
}

/// How the menu opens that is asked for so.
void (*openingOf(SessionInstance::Request request))()
{
    switch (request) {
    case SessionInstance::Request::PopUpByPointer:
        return &popUpMenuByPointer;
    case SessionInstance::Request::Search:
        return &searchMenu;
    default:
        return &popUpMenu;
    }
}

// Qt publishes its own windows and menus to screen readers only when this is set, or when accessibility was
// on before Qt started. It looks for it once the accessibility bus has answered, so it stays set.
constexpr char PublishAlways[] = "QT_LINUX_ACCESSIBILITY_ALWAYS_ON";

/// The count of arguments, for a Qt that is about to start. Qt ends with a crash report where there is no
/// display; a user deserves a sentence.
int& countForStartOfQt(QtArguments& arguments)
{
    if (arguments.namesX11()) {
        xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
        const bool reachable = xcb_connection_has_error(connection) == 0;
        xcb_disconnect(connection);
        if (!reachable) {
            std::fputs("Tarnwick needs an X display: none could be opened.\n", stderr);
            if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
                std::fputs("In this Wayland session, XWayland has to be installed and switched on.\n",
                           stderr);
            std::exit(EXIT_FAILURE);
        }
    }
    qputenv(PublishAlways, "1");
    return arguments.argc();
}

void terminate()
{
    Application::shared().terminate(nullptr);
}

bool running = false;
std::function<bool()> compositorIsGone;

bool displayIsGone()
{
    const auto& x11 = X11Connection::shared();
    return x11 && xcb_connection_has_error(x11.get()) != 0;
}

void storeSettings()
{
    DefaultsStore::shared().synchronize();
}

[[noreturn]] void endNow()
{
    std::_Exit(failure::endsProcess() ? EXIT_FAILURE : EXIT_SUCCESS);
}

/// Libraries end the process where it stands, as if it had failed: Qt when the display goes, the one that
/// speaks with the session manager when that goes.
void endInOrder()
{
    if (!std::exchange(running, false))
        return;
    storeSettings(); // should anything of what follows ask the display, it is the end
    terminate();
    storeSettings();
    endNow();
}

QtMessageHandler handleMessageAsBefore = nullptr;

/// Before Qt, or Xlib for it, ends the process, Qt says so. A session that ends is no reason for noise.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool here = QThread::currentThread() == qApp->thread();
    if (here && displayIsGone()) {
        endInOrder();
    } else if (here && compositorIsGone && compositorIsGone()) {
        if (running)
            std::fputs("Tarnwick ends: the Wayland compositor has gone.\n", stderr);
        endInOrder();
        endNow(); // the toolkit has complained again on the way to the end
    } else {
        handleMessageAsBefore(type, context, message);
    }
}

} // namespace

LinuxSession::LinuxSession(int argc, char** argv, Part part, const QByteArray& platform)
    : _arguments(argc, argv, platform), _application(countForStartOfQt(_arguments), _arguments.argv()),
      _windowIcon(desktop_names::BusName)
{
    QCoreApplication::setOrganizationName(desktop_names::OrganizationName);
    QCoreApplication::setApplicationName(desktop_names::ApplicationName);
    QGuiApplication::setDesktopFileName(desktop_names::BusName);
    _application.installEventFilter(&_windowIcon);
    if (part != Part::Tarnwick)
        return;
    _instance = std::make_unique<SessionInstance>(_bus.connection());
    QObject::connect(&_bus, &SessionBusWatch::changed, _instance.get(),
                     [this] { _instance->setBus(_bus.connection()); });
}

LinuxSession::~LinuxSession() = default;

bool LinuxSession::handedOverToRunningInstance()
{
    return _instance && _instance->anotherIsRunning();
}

void LinuxSession::setPopUpRequest(std::unique_ptr<PopUpRequest> request)
{
    _popUpRequest = std::move(request);
}

void LinuxSession::_followRequests()
{
    if (!_instance)
        return;
    _instance->setRequested([this](SessionInstance::Request request, const FrontHint& hint) {
        if (request == SessionInstance::Request::Show) {
            reopen();
            return;
        }
        const bool byPointer = request == SessionInstance::Request::PopUpByPointer;
        if (_menuAskedFor)
            _menuAskedFor(byPointer ? PopUpTrigger::Kind::Pointer : PopUpTrigger::Kind::Key);
        if (_popUpRequest)
            _popUpRequest->carryOut(hint, openingOf(request));
    });
}

int LinuxSession::run(const std::function<void()>& launch)
{
    _signals = std::make_unique<TerminationSignals>(&terminate);
    // Whether Tarnwick starts with the session is the user's setting, not the session manager's memory.
    QObject::connect(&_application, &QGuiApplication::saveStateRequest, &_application,
                     [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); });
    // Registered after the connection was made, so that it runs before that is gone.
    static_cast<void>(X11Connection::shared());
    std::atexit(&endInOrder);
    handleMessageAsBefore = qInstallMessageHandler(&handleMessage);
    compositorIsGone = _compositorIsGone;
    running = true;
    // With its event loop the toolkit asks the buses for screen readers: the hot key need not wait for that.
    launch();
    _followRequests();
    const int status = Application::shared().terminating() ? EXIT_SUCCESS : QApplication::exec();
    running = false;
    qInstallMessageHandler(handleMessageAsBefore);
    compositorIsGone = nullptr;
    if (_instance)
        _instance->setRequested({});
    terminate(); // where the session manager has ended the loop, the delegate has not been told yet
    return status;
}

} // namespace tarnwick
