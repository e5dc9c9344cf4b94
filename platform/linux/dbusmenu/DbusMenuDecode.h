// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuModel.h"

#include <systemd/sd-bus.h>

#include <array>
#include <optional>

/// Reads what other programs export as menus, which may be anything: a wrong type gives nothing.
namespace tarnwick::dbus_menus {

/// Far more than any application has. They come all at once, and are made into a menu at once; each menu of
/// those that are open has so many.
inline constexpr qsizetype MaximumEntries = 2'500;

/// What a menu needs to know of its entries. Icons, which may be whole pictures, are not asked for.
inline constexpr std::array<const char*, 8> Properties{
    "label", "enabled", "visible", "type", "toggle-type", "toggle-state", "shortcut", "children-display"};

/// The reply to "GetLayout": the entry that was asked for and those right below it. What lies deeper is
/// passed over; nothing when the reply is no layout. What comes after MaximumEntries is cut off.
[[nodiscard]] std::optional<DbusMenuLayout> decodeLayout(sd_bus_message* reply);
/// The first entry of a reply to "GetGroupProperties".
[[nodiscard]] std::optional<DbusMenuEntry> decodeProperties(sd_bus_message* reply);

} // namespace tarnwick::dbus_menus
