// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/XdgSession.h"

#include <QStandardPaths>

namespace tarnwick::xdg_session {

QStringList currentDesktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
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
