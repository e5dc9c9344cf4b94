// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <functional>
#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// Shows menus of the model as the system's own. GUI thread only.
class NativeMenus
{
public:
    virtual ~NativeMenus() = default;

    using Chosen =
        std::function<void(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item)>;

    /// Shows `menu` with its top left corner, or `item` when there is one, at `location` (window-system
    /// space), tells its delegates, and returns when it has closed. `chosen` runs at most once, before it
    /// returns or from the event loop soon after.
    virtual void popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                       QPointF location, const Chosen& chosen) = 0;

    /// Closes what popUp() shows, if anything.
    virtual void cancel() = 0;
};

} // namespace tarnwick
