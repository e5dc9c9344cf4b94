// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuPresenter.h"
#include "platform/macos/menu/NativeMenus.h"

#include <QObject>

namespace tarnwick {

/// Pops menus up as the system's own. A menu that is asked for inside an event tap's callback opens once that
/// has returned: the system holds the event back meanwhile and would switch the tap off.
class MacMenuPresenter final : public QObject, public MenuPresenter
{
    Q_OBJECT

public:
    explicit MacMenuPresenter(std::unique_ptr<NativeMenus> menus);
    ~MacMenuPresenter() override;

    /// False too for a menu that is yet to open.
    bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                                  QPointF location) override;
    void cancelTracking() override;

private:
    [[nodiscard]] bool _popUp(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                              QPointF location);

    std::unique_ptr<NativeMenus> _menus;
    bool _waiting = false; ///< a menu is to open once the tap's callback has returned
};

} // namespace tarnwick
