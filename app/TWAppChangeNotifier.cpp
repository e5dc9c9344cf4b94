// SPDX-License-Identifier: MIT
#include "app/TWAppChangeNotifier.h"

#include "foundation/NotificationCenter.h"
#include "foundation/Workspace.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

qint32 AppFrontSwitchedHandler(TWAppChangeNotifier& notifier)
{
    notifier.appFrontSwitched();
    return 0;
}

bool TWAppChangeNotifier::setupAppFrontSwitchedHandler()
{
    return Workspace::shared().installAppFrontSwitchedHandler([this] { AppFrontSwitchedHandler(*this); });
}

void TWAppChangeNotifier::appFrontSwitched()
{
    // The event does not say which application is in front now: the workspace knows.
    QVariant processIdentifier;
    if (const auto active = Workspace::shared().activeProcessIdentifier())
        processIdentifier = *active;
    NotificationCenter::defaultCenter().postNotificationName(TWAppChangedNotification, this,
                                                             {{u"PID"_s, processIdentifier}});
}

} // namespace tarnwick
