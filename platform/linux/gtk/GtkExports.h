// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/gtk/GtkMenuBars.h"

namespace tarnwick {

/// The menus that GTK programs export, with everything that reads them. GUI thread only.
struct GtkExports
{
    /// Both must outlive this.
    GtkExports(X11Connection& x11, ReadingBudget& budget)
        : applications(bus, budget), menus(bus, budget), menuBars(x11, applications, menus)
    {
    }

    SessionBus bus;
    GtkApplications applications;
    GtkMenuSource menus;
    GtkMenuBars menuBars;
};

} // namespace tarnwick
