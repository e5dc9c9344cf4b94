// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace tarnwick {

/// Opens pages, files and the desktop's settings in other programs. Keeps nothing.
class UrlOpener
{
public:
    /// Opens `url` in the program that the desktop has for it; a settings pane's URL, which is known by its
    /// last path component, in the running desktop's own settings. False when nothing could be started.
    static bool openURL(const QUrl& url);

    /// The one directory that settings panes are named in.
    static QStringList preferencePanesDirectories();

    /// What to start, the first that there is, to show the accessibility settings of the desktops named in
    /// `currentDesktop` (as in XDG_CURRENT_DESKTOP: from the most to the least special, between colons).
    [[nodiscard]] static QList<QStringList> accessibilitySettingsCommands(const QString& currentDesktop);
};

} // namespace tarnwick
