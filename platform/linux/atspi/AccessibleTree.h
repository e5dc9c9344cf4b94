// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiAccess.h"
#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/atspi/AtspiMenuBars.h"
#include "platform/linux/atspi/AtspiMenuSource.h"
#include "platform/linux/atspi/ToolkitBridge.h"

namespace tarnwick {

/// The accessibility tree of other applications with everything that reads it. GUI thread only.
struct AccessibleTree
{
    /// Both must outlive this.
    AccessibleTree(X11Windows& windows, ReadingBudget& budget)
        : activeWindow(applications, budget), menus(bus, budget, toolkits, childrenJustTold),
          menuBars(bus, applications, toolkits, windows, budget, childrenJustTold)
    {
    }

    ToolkitBridge toolkitBridge;
    AtspiBus bus{[this](const QByteArray& address) { toolkitBridge.busAnswered(address); }};
    AtspiApplications applications{bus};
    AtspiAccess access{bus, applications};
    AtspiActiveWindow activeWindow;
    AtspiToolkits toolkits{bus};
    ChildrenJustTold childrenJustTold;
    AtspiMenuSource menus;
    AtspiMenuBars menuBars;
};

} // namespace tarnwick
