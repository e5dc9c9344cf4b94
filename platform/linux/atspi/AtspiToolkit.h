// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// The ways in which applications publish their menus, as far as they differ.
enum class AtspiToolkit {
    Gtk,    ///< the role tells which items hold a submenu, the state VISIBLE which are hidden
    Bridge, ///< like Gtk, but VISIBLE may be missing from everything in a closed menu
    Qt,     ///< holders have one child, the submenu; hidden items take no room, and no state tells them
    Gtk4,   ///< nothing can be read: closed menus are not there, and to press an entry may do anything
    Unknown ///< neither is known yet
};

/// What the toolkit name of an application's root tells.
[[nodiscard]] inline AtspiToolkit toolkitNamed(const QString& name)
{
    if (name == QLatin1String("gtk"))
        return AtspiToolkit::Gtk;
    if (name == QLatin1String("GTK")) // from its version 4 on
        return AtspiToolkit::Gtk4;
    return name == QLatin1String("Qt") ? AtspiToolkit::Qt : AtspiToolkit::Unknown;
}

} // namespace tarnwick
