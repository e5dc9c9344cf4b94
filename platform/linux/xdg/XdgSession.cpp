// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/XdgSession.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick::xdg_session {

QStringList currentDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
}

bool isWayland()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"_s ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

ConfigurationFolders configurationFolders()
{
    ConfigurationFolders folders;
    folders.user = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    folders.system = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders.system.removeAll(folders.user);
    return folders;
}

} // namespace tarnwick::xdg_session
