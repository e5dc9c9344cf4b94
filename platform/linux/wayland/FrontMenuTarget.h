// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AccessibleTree.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/MenuTarget.h"

namespace tarnwick {

/// The application in front by its place in the accessibility tree.
class FrontMenuTarget final : public MenuTarget
{
public:
    static constexpr std::chrono::milliseconds MostForReading{250};

    /// All must outlive this.
    FrontMenuTarget(const FrontApplication& front, AccessibleTree& tree, ForeignToplevels& toplevels)
        : _front(front), _tree(tree), _toplevels(toplevels)
    {
    }

    void fix() override
    {
        _window = _front.current().accessible;
        _toplevel = _toplevels.active();
    }
    void readAhead() override { _tree.menus.readAhead(_window.service, MostForReading); }
    void giveFocusBack() override
    {
        if (_toplevels.activeNow() == 0)
            _toplevels.activate(_toplevel);
    }
    [[nodiscard]] bool isActive(int patience) override
    {
        return !_window ||
               _tree.activeWindow.isActive(_window, Deadline::in(std::chrono::milliseconds(patience)));
    }

private:
    const FrontApplication& _front;
    AccessibleTree& _tree;
    ForeignToplevels& _toplevels;
    BusReference _window;
    ForeignToplevels::Window _toplevel = 0;
};

} // namespace tarnwick
