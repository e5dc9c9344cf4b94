// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuBars.h"
#include "platform/linux/dbusmenu/DbusMenuSource.h"

namespace tarnwick {

/// The menus that programs export for a menu bar outside their windows, with everything that reads them. GUI
/// thread only.
struct DbusMenuExports
{
    /// Both must outlive this.
    DbusMenuExports(SessionBus& bus, ReadingBudget& budget) : menus(bus, budget), menuBars(bus, budget, menus)
    {
    }

    DbusMenuSource menus;
    DbusMenuBars menuBars;
};

} // namespace tarnwick
