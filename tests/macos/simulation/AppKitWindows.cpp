// SPDX-License-Identifier: MIT
// Simulated: what AppKit alone can do with the application and its windows.
#include "platform/macos/workspace/AppKitWindows.h"

#include "tests/macos/simulation/MacCall.h"

#include <QWidget>

namespace tarnwick {

void activateApplication(bool ignoringOtherApps)
{
    const MacCall call("activateIgnoringOtherApps", ignoringOtherApps);
}

void orderFrontRegardless(const QWidget& window)
{
    const MacCall call("orderFrontRegardless", QVariant(window.windowTitle()));
}

void abortModalAlert()
{
    const MacCall call("abortModal");
}

} // namespace tarnwick
