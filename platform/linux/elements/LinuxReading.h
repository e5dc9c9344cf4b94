// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AccessibleTree.h"
#include "platform/linux/dbusmenu/DbusMenuExports.h"
#include "platform/linux/elements/ApplicationNames.h"
#include "platform/linux/elements/MenuBars.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/gtk/GtkExports.h"
#include "platform/linux/menus/OwnMenuSource.h"

#include <functional>
#include <memory>

namespace tarnwick {

/// What is read of other applications, and of this one beside them: what is in front, menus from wherever
/// they are published, windows, names. A program has one. GUI thread only.
struct LinuxReading
{
    /// Makes what tells the window in front; the active window in the accessibility tree, which it may ask,
    /// outlives it.
    using MakeFront = std::function<std::unique_ptr<FrontApplication>(AtspiActiveWindow& inTree)>;

    explicit LinuxReading(const MakeFront& makeFront);

    ReadingBudget budget;
    X11Windows windows;
    AccessibleTree tree;
    GtkExports exports;
    DbusMenuExports outside; ///< of menu bars
    OwnMenuSource ownMenus;
    MenuBars menuBars;
    ApplicationNames names;
    std::unique_ptr<FrontApplication> front; ///< never null
};

} // namespace tarnwick
