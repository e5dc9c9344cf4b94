// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QPointF>

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// Posted on the default notification centre after an item that was chosen in a menu has performed its
/// action; the object is the menu, "MenuItem" in the user info the item's title.
inline constexpr char16_t MenuDidSendActionNotificationName[] = u"NSMenuDidSendActionNotification";

/// Shows menus of the model as menus of the desktop. GUI thread only.
class MenuPresenter : public SharedPort<MenuPresenter>
{
public:
    virtual ~MenuPresenter() = default;

    /// Shows `menu` as a pop-up and returns when it has closed and the chosen item's action was performed.
    /// With no positioning `item` the top left corner is at `location`: window-system space, origin at the
    /// bottom left of the first screen. For each menu, menuNeedsUpdate, Menu::update and menuWillOpen run
    /// just before it opens, and menuDidClose at the end. What is shown may be changed or dropped meanwhile.
    /// Keyboard and pointer are free again before the action is performed. True when an item was chosen;
    /// false otherwise, also when the menu could not be shown or one is open already: then no delegate is
    /// told anything.
    virtual bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu,
                                          const std::shared_ptr<MenuItem>& item, QPointF location) = 0;

    /// Closes the menu that is shown, if any, without choosing.
    virtual void cancelTracking() = 0;
};

} // namespace tarnwick
