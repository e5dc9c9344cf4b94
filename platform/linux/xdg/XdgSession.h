// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What the environment says of the session.
namespace tarnwick::xdg_session {

/// The names of the desktop, from the most to the least special; empty without one.
[[nodiscard]] QStringList currentDesktops();

/// Whether a Wayland compositor shows the desktop. An X server is XWayland then.
[[nodiscard]] bool isWayland();

struct ConfigurationFolders
{
    QString user;
    QStringList system; ///< that of most weight first
};
[[nodiscard]] ConfigurationFolders configurationFolders();

} // namespace tarnwick::xdg_session
