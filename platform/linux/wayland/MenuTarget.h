// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// The application that a menu is for, as the presenter has to know it. GUI thread only.
class MenuTarget
{
public:
    virtual ~MenuTarget() = default;

    /// It is the one in front now, before anything of ours is on the screen.
    virtual void fix() = 0;
    /// Reads what all its menus show, until that has been read or a quarter of a second has passed: without
    /// the keyboard it will show other things. What has not come by then is read when it is opened.
    virtual void readAhead() = 0;
    /// Has its window have the keyboard again, where a click on our menu has taken that away for good.
    virtual void giveFocusBack() = 0;
    /// Whether its window is the active one now. True when there is none. Waits for its answer, but for less
    /// than `patience` milliseconds.
    [[nodiscard]] virtual bool isActive(int patience) = 0;
};

} // namespace tarnwick
