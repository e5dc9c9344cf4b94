// SPDX-License-Identifier: MIT
#include "platform/linux/menus/UnmadeMenu.h"

namespace tarnwick {

MenuRow UnmadeMenu::row()
{
    MenuRow row;
    row.title = tr("Open this menu in the application once");
    return row;
}

bool UnmadeMenu::is(const QList<MenuRow>& rows)
{
    if (rows.isEmpty())
        return true;
    const MenuRow& only = rows.first();
    return rows.size() == 1 && only.kind == MenuRow::Kind::Item && !only.item && !only.action;
}

} // namespace tarnwick
