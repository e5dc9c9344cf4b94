// SPDX-License-Identifier: MIT
#include "platform/macos/session/MacSession.h"

#include "foundation/ApplicationDelegate.h"
#include "platform/qt/application/VisibleWindows.h"

#include <QTimer>

namespace tarnwick {
namespace {

/// Whether the system is to go on with what it does by itself.
bool reopen()
{
    ApplicationDelegate* delegate = Application::shared().delegate();
    return !delegate || Application::shared().terminating() ||
           delegate->applicationShouldHandleReopenHasVisibleWindows(anyWindowVisible());
}

} // namespace

MacSession::Attributes::Attributes()
{
    // Qt would bring the program to the front as it starts, and take the keyboard from the application in
    // use.
    qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
    // Modifiers are the physical keys: Qt would exchange Control and Command.
    QCoreApplication::setAttribute(Qt::AA_MacDontSwapCtrlAndMeta);
}

MacSession::MacSession(int& argc, char** argv) : _application(argc, argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Tarnwick"));
}

bool MacSession::handedOverToRunningInstance()
{
    return false;
}

int MacSession::run(const std::function<void()>& launch)
{
    QTimer::singleShot(0, &_application, [this, &launch] {
        launch();
        // Not before: AppKit installs its own handler while it starts up.
        [[maybe_unused]] const bool installed = _reopenEvent.install(reopen);
    });
    const int status = QApplication::exec();
    Application::shared().terminate(
        nullptr); // where the system has ended the loop, the delegate was not told yet
    return status;
}

} // namespace tarnwick
