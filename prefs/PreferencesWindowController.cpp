// SPDX-License-Identifier: MIT
#include "prefs/PreferencesWindowController.h"

#include "foundation/Application.h"
#include "prefs/LoginItem.h"

namespace tarnwick {

void PreferencesWindowController::setStartAtLoginEnabled(const QUrl& applicationUrl, bool enabled)
{
    setLoginItemEnabled(applicationUrl, enabled);
}

QUrl PreferencesWindowController::appURL() const
{
    return QUrl::fromLocalFile(Application::shared().bundlePath());
}

} // namespace tarnwick
