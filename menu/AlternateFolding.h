// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QtGlobal>

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// The items of `menu` to show while `heldModifiers` (ModifierFlag bits) are held, in menu order. An
/// alternate folds into the item before it, unless that is a separator, when both have the same key
/// equivalent and different masks; of an item and the alternates folded into it exactly one is shown: the
/// first alternate whose mask equals the held modifiers, Command aside in both, else the item. Other
/// alternates are ordinary items.
[[nodiscard]] QList<std::shared_ptr<MenuItem>> itemsShownWithModifiers(const Menu& menu,
                                                                       quint64 heldModifiers);

} // namespace tarnwick
