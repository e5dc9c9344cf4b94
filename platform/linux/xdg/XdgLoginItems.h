// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"

#include <QString>
#include <QStringList>

namespace tarnwick {

/// Login items as autostart entries of the desktop: the files of the user's folder over those of the same
/// name in the system's folders. The list's order is the newest first. An entry that is switched off, or not
/// meant for the running desktop, does not start and is no item.
class XdgLoginItems final : public LoginItems
{
public:
    /// Folders as the base-directory rules name them: the user's configuration, the system's, and the names
    /// in XDG_CURRENT_DESKTOP.
    XdgLoginItems(QString userConfiguration, QStringList systemConfigurations, QStringList currentDesktops);
    /// Those of this session.
    [[nodiscard]] static std::unique_ptr<XdgLoginItems> ofSession();

    [[nodiscard]] std::unique_ptr<List> createSessionLoginItems() override;

private:
    QString _userConfiguration;
    QStringList _systemConfigurations;
    QStringList _currentDesktops;
};

} // namespace tarnwick
