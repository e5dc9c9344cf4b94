// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/ApplicationNames.h"
#include "platform/linux/elements/MenuBars.h"
#include "platform/linux/x11/X11ActiveWindow.h"

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
