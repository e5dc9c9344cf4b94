// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/NotificationCenter.h"
#include "menu/AlternateFolding.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "menu/MenuPresenter.h"

#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

namespace tarnwick {

/// Pops menus up without a screen, for a user whose one next choice the test has written down.
class FakeMenuPresenter final : public MenuPresenter
{
public:
    struct PopUp
    {
        std::shared_ptr<Menu> menu;
        std::shared_ptr<MenuItem> item;
        QPointF location;
        QList<QStringList> titles; ///< what each menu showed when it opened, outermost first
    };

    bool canShow = true;             ///< lever: the desktop lets a menu show
    QStringList choose;              ///< lever: titles on the way to the choice; empty closes without one
    quint64 heldModifiers = 0;       ///< lever: ModifierFlag bits held while choosing
    std::function<void()> whileOpen; ///< lever: runs when every menu on the way is open
    QList<PopUp> popUps;             ///< look: what was shown, in order

    [[nodiscard]] bool isOpen() const { return _open; }

    bool popUpMenuPositioningItem(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item,
                                  QPointF location) override
    {
        if (!menu || !canShow || _open)
            return false;
        popUps.append({menu, item, location, {}});
        _open = true;
        _cancelled = false;
        const auto [chosenMenu, chosen] = _openAndChoose(menu);
        _open = false;
        if (!chosen)
            return false;
        if (const auto target = chosen->target(); target && target->respondsTo(chosen->action()))
            target->perform(chosen->action(), chosen.get());
        NotificationCenter::defaultCenter().postNotificationName(
            QString::fromUtf16(MenuDidSendActionNotificationName), chosenMenu.get(),
            {{QStringLiteral("MenuItem"), chosen->title()}});
        return true;
    }

    void cancelTracking() override { _cancelled = true; }

private:
    using Choice = std::pair<std::shared_ptr<Menu>, std::shared_ptr<MenuItem>>; ///< nulls for none

    Choice _openAndChoose(const std::shared_ptr<Menu>& menu)
    {
        QList<std::shared_ptr<Menu>> opened;
        Choice chosen;
        std::shared_ptr<Menu> next = menu;
        for (qsizetype depth = 0; next; ++depth) {
            const QList<std::shared_ptr<MenuItem>> shown = _tellAndShow(next);
            opened.append(std::exchange(next, nullptr));
            if (depth == choose.size())
                break;
            for (const auto& item : shown) {
                if (item->title() == choose.at(depth) && item->isEnabled()) {
                    if (MenuDelegate* delegate = opened.last()->delegate())
                        delegate->menuWillHighlightItem(*opened.last(), item.get());
                    next = item->submenu();
                    if (!next && depth + 1 == choose.size())
                        chosen = {opened.last(), item};
                    break;
                }
            }
        }
        if (whileOpen)
            whileOpen();
        while (!opened.isEmpty()) {
            const std::shared_ptr<Menu> closing = opened.takeLast();
            if (MenuDelegate* delegate = closing->delegate())
                delegate->menuDidClose(*closing);
        }
        return _cancelled ? Choice() : chosen;
    }

    QList<std::shared_ptr<MenuItem>> _tellAndShow(const std::shared_ptr<Menu>& menu)
    {
        if (MenuDelegate* delegate = menu->delegate())
            delegate->menuNeedsUpdate(*menu);
        menu->update();
        if (MenuDelegate* delegate = menu->delegate())
            delegate->menuWillOpen(*menu);
        const auto shown = itemsShownWithModifiers(*menu, heldModifiers);
        QStringList titles;
        for (const auto& item : shown)
            titles.append(item->title());
        popUps.last().titles.append(titles);
        return shown;
    }

    bool _open = false;
    bool _cancelled = false;
};

} // namespace tarnwick
