// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/gtk/GtkMenuModel.h"

#include <systemd/sd-bus.h>

/// Reads what other programs export as menus and actions, which may be anything: a wrong type gives nothing.
namespace tarnwick::gtk_menus {

/// Far more than any application has. They come all at once, and are made into a menu at once: four times as
/// many took longer than anybody should wait, and 160 MiB.
inline constexpr qsizetype MaximumEntries = 5'000;

/// Adds the menus of a reply to "Start". What comes after MaximumEntries is cut off.
void decodeMenus(sd_bus_message* reply, GtkMenus& menus);
/// The reply to "DescribeAll", cut off in the same way.
[[nodiscard]] GtkActions decodeActions(sd_bus_message* reply);
/// The reply to "Describe".
[[nodiscard]] std::optional<GtkActionFacts> decodeAction(sd_bus_message* reply);

} // namespace tarnwick::gtk_menus
