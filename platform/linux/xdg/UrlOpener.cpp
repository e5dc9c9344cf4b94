// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/UrlOpener.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString AccessibilityPane = u"UniversalAccessPref.prefPane"_s;

struct DesktopSettings
{
    QString desktop;
    QStringList command;
};

const QList<DesktopSettings>& settingsPrograms()
{
    static const QList<DesktopSettings> programs = {
        {u"GNOME"_s, {u"gnome-control-center"_s, u"universal-access"_s}},
        {u"Unity"_s, {u"unity-control-center"_s, u"universal-access"_s}},
        {u"Budgie"_s, {u"budgie-control-center"_s, u"universal-access"_s}},
        {u"KDE"_s, {u"systemsettings"_s, u"kcm_access"_s}},
        {u"KDE"_s, {u"systemsettings5"_s, u"kcm_access"_s}},
        {u"XFCE"_s, {u"xfce4-accessibility-settings"_s}},
        {u"MATE"_s, {u"mate-at-properties"_s}},
        {u"X-Cinnamon"_s, {u"cinnamon-settings"_s, u"universal-access"_s}},
        {u"Cinnamon"_s, {u"cinnamon-settings"_s, u"universal-access"_s}},
    };
    return programs;
}

bool start(const QStringList& command)
{
    const QString program = QStandardPaths::findExecutable(command.constFirst());
    return !program.isEmpty() && QProcess::startDetached(program, command.mid(1));
}

bool openAccessibilitySettings()
{
    const auto commands =
        UrlOpener::accessibilitySettingsCommands(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
    for (const QStringList& command : commands) {
        if (start(command))
            return true;
    }
    return false;
}

} // namespace

bool UrlOpener::openURL(const QUrl& url)
{
    if (!url.isValid() || url.isEmpty())
        return false;
    if (url.isLocalFile() && url.fileName() == AccessibilityPane)
        return openAccessibilitySettings();
    return QDesktopServices::openUrl(url);
}

QStringList UrlOpener::preferencePanesDirectories()
{
    return {u"/usr/share/applications"_s};
}

QList<QStringList> UrlOpener::accessibilitySettingsCommands(const QString& currentDesktop)
{
    QList<QStringList> commands;
    const auto desktops = currentDesktop.split(u':', Qt::SkipEmptyParts);
    for (const QString& desktop : desktops) {
        for (const DesktopSettings& settings : settingsPrograms()) {
            if (settings.desktop.compare(desktop, Qt::CaseInsensitive) == 0 &&
                !commands.contains(settings.command))
                commands.append(settings.command);
        }
    }
    return commands;
}

} // namespace tarnwick
