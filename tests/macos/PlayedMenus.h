// SPDX-License-Identifier: MIT
#pragma once

#include "platform/macos/menu/NativeMenus.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <QList>

namespace tarnwick {

/// Menus that open and close at once; the test plays the user.
class PlayedMenus final : public NativeMenus
{
public:
    struct PopUp
    {
        std::shared_ptr<Menu> menu;
        std::shared_ptr<MenuItem> item;
        QPointF location;
    };

    QList<PopUp> popUps;
    int cancels = 0;
    std::function<void(const Chosen&)> whileOpen;
    Chosen last; ///< for a choice that comes late

    void popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item, QPointF location,
               const Chosen& chosen) override
    {
        popUps.append({menu, item, location});
        last = chosen;
        SimulatedMac::instance().menuIsOpen = true;
        if (whileOpen)
            whileOpen(chosen);
        SimulatedMac::instance().menuIsOpen = false;
    }

    void cancel() override { ++cancels; }
};

} // namespace tarnwick
