// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuItem.h"
#include "menu/ProxyMenuItem.h"
#include "platform/linux/elements/LinuxReading.h"
#include "platform/linux/elements/MenuItemElement.h"
#include "platform/linux/wayland/MenuTarget.h"
#include "platform/linux/wayland/Toplevels.h"

#include <utility>

namespace tarnwick {

/// The application in front by its place in the accessibility tree.
class FrontMenuTarget final : public MenuTarget
{
public:
    static constexpr std::chrono::milliseconds MostForReading{250};

    /// `reading` must outlive this.
    FrontMenuTarget(LinuxReading& reading, std::shared_ptr<Toplevels> toplevels)
        : _reading(reading), _toplevels(std::move(toplevels))
    {
    }

    void fix() override
    {
        _window = _reading.front->current();
        _toplevel = _toplevels->active();
    }
    void readAhead() override { _reading.menuBars.readAhead(_window, MostForReading); }
    void giveFocusBack() override
    {
        if (_toplevels->activeNow() == 0)
            _toplevels->activate(_toplevel);
    }
    [[nodiscard]] bool takes(const MenuItem& item, int patience) override
    {
        const auto* const proxy = dynamic_cast<const ProxyMenuItem*>(item.target().get());
        if (!proxy)
            return true; // an entry of our own
        const Deadline deadline = Deadline::in(std::chrono::milliseconds(patience));
        const auto* const element = dynamic_cast<const MenuItemElement*>(proxy->itemAXUIElementRef().get());
        const BusReference& window = _window.accessible;
        return !(window && _reading.tree.activeWindow.isInactive(window, deadline)) &&
               !(element && element->isDisabledNow(deadline));
    }

private:
    LinuxReading& _reading;
    std::shared_ptr<Toplevels> _toplevels;
    FrontWindow _window;
    Toplevels::Window _toplevel = 0;
};

} // namespace tarnwick
