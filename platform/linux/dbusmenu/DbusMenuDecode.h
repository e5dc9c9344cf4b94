// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuModel.h"

#include <systemd/sd-bus.h>

#include <array>
#include <optional>

/// Reads what other programs export as menus, which may be anything: a wrong type gives nothing.
namespace tarnwick::dbus_menus {

/// Far more than any application has. They come all at once, and are made into a menu at once.
inline constexpr qsizetype MaximumEntries = 5'000;

/// What a menu needs to know of its entries. Icons, which may be whole pictures, are not asked for.
inline constexpr std::array<const char*, 8> Properties{
    "label", "enabled", "visible", "type", "toggle-type", "toggle-state", "shortcut", "children-display"};

/// The entries right below the one whose layout was asked for: the reply to "GetLayout". What lies deeper is
/// passed over; nothing when the reply is no layout. What comes after MaximumEntries is cut off.
[[nodiscard]] std::optional<QList<DbusMenuEntry>> decodeLayout(sd_bus_message* reply);

} // namespace tarnwick::dbus_menus
