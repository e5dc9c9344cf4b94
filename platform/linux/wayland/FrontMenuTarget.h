// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AccessibleTree.h"
#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/wayland/MenuTarget.h"

namespace tarnwick {

/// The application in front by its place in the accessibility tree.
class FrontMenuTarget final : public MenuTarget
{
public:
    static constexpr std::chrono::milliseconds MostForReading{250};

    /// Both must outlive this.
    FrontMenuTarget(const FrontApplication& front, AccessibleTree& tree) : _front(front), _tree(tree) {}

    void fix() override { _window = _front.current().accessible; }
    void readAhead() override { _tree.menus.readAhead(_window.service, MostForReading); }
    [[nodiscard]] bool isActive(int patience) override
    {
        return !_window ||
               _tree.activeWindow.isActive(_window, Deadline::in(std::chrono::milliseconds(patience)));
    }

private:
    const FrontApplication& _front;
    AccessibleTree& _tree;
    BusReference _window;
};

} // namespace tarnwick
