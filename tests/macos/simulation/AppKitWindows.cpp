// SPDX-License-Identifier: MIT
// Simulated: what AppKit alone can do with the application and its windows.
#include "platform/macos/workspace/AppKitWindows.h"

#include "tests/macos/simulation/MacCall.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QCoreApplication>
#include <QWidget>

namespace tarnwick {

void activateApplication(bool ignoringOtherApps)
{
    const MacCall call("activateIgnoringOtherApps", ignoringOtherApps);
    SimulatedMac& mac = SimulatedMac::instance();
    if (!call.fails() && (ignoringOtherApps || mac.activeProcess() == 0))
        mac.activate(QCoreApplication::applicationPid());
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
