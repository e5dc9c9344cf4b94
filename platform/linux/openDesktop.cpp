// SPDX-License-Identifier: MIT
#include "app/Desktop.h"
#include "platform/linux/LinuxSession.h"
#include "platform/linux/LinuxTrayHost.h"
#include "platform/linux/XdgLoginItems.h"
#include "platform/qt/QtAlerts.h"
#include "platform/qt/QtApplication.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtDefaultsStore.h"
#include "platform/qt/QtEventSource.h"
#include "platform/qt/QtFonts.h"
#include "platform/qt/QtStatusBar.h"

#include <QDBusConnection>

namespace tarnwick {

Desktop openDesktop(int& argc, char** argv)
{
    Desktop desktop;
    desktop.session = std::make_unique<LinuxSession>(argc, argv);
    return desktop;
}

} // namespace tarnwick
