// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

class MenuItem;

/// The application that a menu is for, as the presenter has to know it. GUI thread only.
class MenuTarget
{
public:
    virtual ~MenuTarget() = default;

    /// It is the one in front now, before the keyboard is taken from it.
    virtual void fix() = 0;
    /// Reads what all its menus show, until that has been read or a quarter of a second has passed: without
    /// the keyboard it will show other things. What has not come by then is read when it is opened.
    virtual void readAhead() = 0;
    /// Has its window have the keyboard again, where a click on our menu has taken that away for good.
    virtual void giveFocusBack() = 0;
    /// Whether a choice of that item can be carried out now: of an item of the application neither its window
    /// says that it is not the active one, nor the item that it is disabled. What says nothing within
    /// `patience` milliseconds is busy, and the choice is its own to deal with.
    [[nodiscard]] virtual bool takes(const MenuItem& item, int patience) = 0;
};

} // namespace tarnwick
