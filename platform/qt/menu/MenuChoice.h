// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// An item that was chosen in a menu; `menu` holds, or held, it.
struct MenuChoice
{
    std::shared_ptr<Menu> menu;
    std::shared_ptr<MenuItem> item;
};

/// Carries out that `item` of `menu` was chosen: its action on its target, then the did-send-action
/// notification.
void performMenuChoice(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item);

} // namespace tarnwick
