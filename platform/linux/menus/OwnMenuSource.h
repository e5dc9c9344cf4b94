// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/menus/MenuSource.h"

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// This application's own main menu, answered without any bus: asking ourselves over the bus would wait for
/// ourselves. A reference's path is the item's indices from the bar down.
class OwnMenuSource final : public MenuSource
{
public:
    [[nodiscard]] static bool hasBar();
    [[nodiscard]] static BusReference bar();

    std::optional<QList<MenuRow>> readBar(const BusReference& bar) override;
    std::optional<QList<MenuRow>> readMenu(const BusReference& contents) override;
    /// Performs the item's action now.
    bool press(const MenuRow& row) override;
    /// Never: whether that can be is asked by the press itself.
    [[nodiscard]] bool isDisabledNow(const MenuRow& /*row*/, Deadline /*deadline*/) override { return false; }
};

} // namespace tarnwick
