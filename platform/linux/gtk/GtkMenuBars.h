// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/gtk/GtkApplications.h"
#include "platform/linux/gtk/GtkMenuSource.h"
#include "platform/linux/x11/X11Connection.h"

namespace tarnwick {

/// Where a window is among those of its program, in the order in which they were made.
struct WindowPosition
{
    qsizetype index = 0;
    qsizetype count = 1;
};

/// Finds the menu bar that is exported for a window. GUI thread only.
class GtkMenuBars
{
public:
    /// All must outlive this.
    GtkMenuBars(X11Connection& x11, GtkApplications& applications, GtkMenuSource& source)
        : _x11(x11), _applications(applications), _source(source)
    {
    }

    /// Empty when the window exports none. Whether it can be read is not tried.
    [[nodiscard]] BusReference ofWindow(xcb_window_t window);
    /// Whether a module of GTK exports the bar, which it makes of the menus that the program itself has.
    [[nodiscard]] static bool isOfModule(const BusReference& bar);
    /// The same of a window that no X server knows. Where its program has other windows than those that are
    /// counted, it is not known which one it is, and what its entries do to a window can't be done.
    [[nodiscard]] BusReference ofProcess(qint64 processIdentifier, const WindowPosition& position);

private:
    X11Connection& _x11;
    GtkApplications& _applications;
    GtkMenuSource& _source;
};

} // namespace tarnwick
