// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/gtk/GtkMenuPlace.h"
#include "platform/linux/menus/MenuRow.h"

namespace tarnwick {

/// By the path of their group.
using GtkActionGroups = QHash<QByteArray, GtkActions>;

/// The sections that the menu at `number` is made of and `menus` does not have, each once.
[[nodiscard]] QList<GtkMenuNumber> missingSections(const GtkMenus& menus, GtkMenuNumber number);

/// The visible entries of the menu at `place`, as the toolkit itself would show them: its sections one after
/// the other with separators between them. `self` is the reference to the menu.
[[nodiscard]] QList<MenuRow> gtkNormalForm(const GtkMenus& menus, const GtkMenuPlace& place,
                                           const GtkActionGroups& actions, const BusReference& self);

} // namespace tarnwick
