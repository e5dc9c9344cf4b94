// SPDX-License-Identifier: MIT
// Simulated: what AppKit alone can do with the application and its windows.
#include "platform/macos/AppKitWindows.h"

#include "tests/macos/simulation/SimulatedMac.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace tarnwick {

void activateApplication(bool ignoringOtherApps)
{
    SimulatedMac::instance().record(u"activateIgnoringOtherApps"_s, {ignoringOtherApps});
}

void orderFrontRegardless(const QWidget& window)
{
    SimulatedMac::instance().record(u"orderFrontRegardless"_s, {window.windowTitle()});
}

void abortModalAlert()
{
    SimulatedMac::instance().record(u"abortModal"_s);
}

} // namespace tarnwick
