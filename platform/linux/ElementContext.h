// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/ApplicationNames.h"
#include "platform/linux/MenuBars.h"
#include "platform/linux/X11ActiveWindow.h"

namespace tarnwick {

/// What the elements read from. Outlives every read, though not every element.
struct ElementContext
{
    X11ActiveWindow& activeWindow;
    X11Windows& windows;
    AtspiBus& bus;
    ReadingBudget& budget;
    MenuBars& menuBars;
    ApplicationNames& names;
};

} // namespace tarnwick
