// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/GtkMenuModel.h"

#include <systemd/sd-bus.h>

/// Reads what other programs export as menus and actions, which may be anything: a wrong type gives nothing.
namespace tarnwick::gtk_menus {

inline constexpr qsizetype MaximumEntries = 20'000;

/// Adds the menus of a reply to "Start". What comes after the 20,000th entry is cut off.
void decodeMenus(sd_bus_message* reply, GtkMenus& menus);
/// The reply to "DescribeAll", cut off in the same way.
[[nodiscard]] GtkActions decodeActions(sd_bus_message* reply);
/// The reply to "Describe".
[[nodiscard]] std::optional<GtkActionFacts> decodeAction(sd_bus_message* reply);

} // namespace tarnwick::gtk_menus
