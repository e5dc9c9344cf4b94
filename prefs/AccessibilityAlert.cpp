// SPDX-License-Identifier: MIT
#include "prefs/AccessibilityAlert.h"

#include "ax/Accessibility.h"
#include "foundation/Application.h"
#include "foundation/Workspace.h"

#include <QCoreApplication>
#include <QDir>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("AccessibilityAlert", text);
}

// Only an answer of exactly one folder tells where the pane is.
void openAccessibilityPane()
{
    auto& workspace = Workspace::shared();
    const auto folders = workspace.searchPathForDirectoriesInDomains(Workspace::PreferencePanesDirectory,
                                                                     Workspace::SystemDomainMask, true);
    if (folders.size() == 1)
        workspace.openURL(
            QUrl::fromLocalFile(QDir(folders.first()).filePath(u"UniversalAccessPref.prefPane"_s)));
}

} // namespace

bool accessibilityGranted()
{
    auto& accessibility = Accessibility::shared();
    return accessibility.apiEnabled() || accessibility.isProcessTrusted();
}

Alert accessibilityAlert()
{
    return {Alert::Style::Warning,
            translated(QT_TRANSLATE_NOOP("AccessibilityAlert",
                                         "Tarnwick requires that the Accessibility API be enabled.")),
            translated(QT_TRANSLATE_NOOP("AccessibilityAlert",
                                         "Would you like to launch System Preferences so that you can turn "
                                         "on \"Enable access for assistive devices\"?")),
            {translated(QT_TRANSLATE_NOOP("AccessibilityAlert", "Open System Preferences")),
             translated(QT_TRANSLATE_NOOP("AccessibilityAlert", "Continue Anyway")),
             translated(QT_TRANSLATE_NOOP("AccessibilityAlert", "Quit Tarnwick"))}};
}

void accessibilityAlertDidEnd(int returnCode, ActionSender* sender)
{
    if (returnCode == Alert::FirstButtonReturn)
        openAccessibilityPane();
    else if (returnCode == Alert::ThirdButtonReturn)
        Application::shared().terminate(sender);
}

} // namespace tarnwick
