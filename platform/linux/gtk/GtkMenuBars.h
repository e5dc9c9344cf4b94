// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/gtk/GtkMenuSource.h"
#include "platform/linux/x11/X11Connection.h"

namespace tarnwick {

/// Finds the menu bar that a window says it exports. GUI thread only.
class GtkMenuBars
{
public:
    /// Both must outlive this.
    GtkMenuBars(X11Connection& x11, GtkMenuSource& source) : _x11(x11), _source(source) {}

    /// Empty when the window exports none. Whether it can be read is not tried.
    [[nodiscard]] BusReference ofWindow(xcb_window_t window);

private:
    X11Connection& _x11;
    GtkMenuSource& _source;
};

} // namespace tarnwick
