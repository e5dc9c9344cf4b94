// SPDX-License-Identifier: MIT
#include "platform/macos/menu/MacMenuPresenter.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/qt/menu/MenuChoice.h"
#include "platform/qt/menu/MenuTracking.h"

#include <optional>
#include <utility>

namespace tarnwick {

MacMenuPresenter::MacMenuPresenter(std::unique_ptr<NativeMenus> menus) : _menus(std::move(menus))
{
    connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, this, &MacMenuPresenter::cancelTracking);
}

MacMenuPresenter::~MacMenuPresenter() = default;

bool MacMenuPresenter::popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu,
                                                const std::shared_ptr<MenuItem>& item, QPointF location)
{
    if (!menu || _waiting || MenuTracking::shared().active())
        return false;
    if (!QuartzEventTaps::isInsideCallback())
        return _popUp(menu, item, location);
    _waiting = true;
    QMetaObject::invokeMethod(
        this,
        [this, menu, item, location] {
            _waiting = false;
            popUpMenuPositioningItem(menu, item, location);
        },
        Qt::QueuedConnection);
    return false;
}

void MacMenuPresenter::cancelTracking()
{
    if (MenuTracking::shared().active())
        _menus->cancel();
}

bool MacMenuPresenter::_popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                              QPointF location)
{
    struct Outcome
    {
        bool closed = false;
        std::shared_ptr<Menu> menu;
        std::shared_ptr<MenuItem> item;
    };
    // Shared with a choice that comes after the menu has closed.
    const auto outcome = std::make_shared<Outcome>();
    MenuTracking::shared().begin();
    _menus->popUp(menu, item, location, [outcome](const auto& chosenMenu, const auto& chosenItem) {
        if (outcome->closed) {
            performMenuChoice(chosenMenu, chosenItem);
            return;
        }
        outcome->menu = chosenMenu;
        outcome->item = chosenItem;
    });
    MenuTracking::shared().end();
    outcome->closed = true;
    if (!outcome->item)
        return false;
    performMenuChoice(outcome->menu, outcome->item);
    return true;
}

} // namespace tarnwick

#include "moc_MacMenuPresenter.cpp"
