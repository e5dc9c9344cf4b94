// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/Event.h"

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// What a menu tells and asks its delegate, which it does not own. The bodies do what a delegate that does
/// not respond does. GUI thread only.
class MenuDelegate
{
public:
    virtual ~MenuDelegate() = default;

    /// `menu` is about to open: the delegate may fill and change it.
    virtual void menuNeedsUpdate(Menu& /*menu*/) {}
    virtual void menuWillOpen(Menu& /*menu*/) {}
    /// Null when no item is highlighted any more.
    virtual void menuWillHighlightItem(Menu& /*menu*/, MenuItem* /*item*/) {}
    virtual void menuDidClose(Menu& /*menu*/) {}

    /// Whether some item has `event` as its key equivalent. True without a target ends the search without an
    /// effect.
    virtual bool menuHasKeyEquivalentForEventTargetAction(Menu& /*menu*/, const Event& /*event*/,
                                                          ActionTarget*& /*target*/, QString& /*action*/)
    {
        return false;
    }

protected:
    MenuDelegate() = default;
    MenuDelegate(const MenuDelegate&) = default;
    MenuDelegate& operator=(const MenuDelegate&) = default;
    MenuDelegate(MenuDelegate&&) = default;
    MenuDelegate& operator=(MenuDelegate&&) = default;
};

} // namespace tarnwick
