// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuModel.h"
#include "platform/linux/menus/MenuRow.h"

namespace tarnwick {

/// The visible entries of one exported menu, with separators between them only. `self` is the reference to
/// the menu, its path that of a DbusMenuPlace.
[[nodiscard]] QList<MenuRow> dbusMenuNormalForm(const QList<DbusMenuEntry>& entries,
                                                const BusReference& self);

/// Whether its entries are yet to be made: there is none, or a stand-in for them.
[[nodiscard]] bool isUnmade(const DbusMenuLayout& layout);

} // namespace tarnwick
