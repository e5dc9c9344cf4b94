// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/elements/MenuBars.h"
#include "platform/linux/front/FrontWindow.h"

#include <functional>
#include <optional>

namespace tarnwick {

/// Tells which changes of the front window are switches: another process, or another window that owns the
/// menu bar, or the same one that can be read only now. A dialog of the same window is none.
class FrontSwitches
{
public:
    using OwnerOf = std::function<MenuBarOwner(const FrontWindow&)>;

    /// `front` is in front at the start. `ownerOf` is asked when both windows belong to one process.
    FrontSwitches(const FrontWindow& front, OwnerOf ownerOf) : _front(front), _ownerOf(std::move(ownerOf)) {}

    /// The next change is one from `front`, whatever was in front before.
    void startFrom(const FrontWindow& front);

    /// Whether the change to `front` is a switch.
    [[nodiscard]] bool isSwitch(const FrontWindow& front);

private:
    FrontWindow _front;
    std::optional<MenuBarOwner> _owner; ///< of the front window, once it has been asked for
    OwnerOf _ownerOf;
};

} // namespace tarnwick
