// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuChoice.h"

#include "foundation/Application.h"
#include "foundation/NotificationCenter.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuPresenter.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

void performMenuChoice(const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item)
{
    Application::shared().sendActionToFrom(item->action(), item->target().get(), item.get());
    NotificationCenter::defaultCenter().postNotificationName(
        QString::fromUtf16(MenuDidSendActionNotificationName), menu.get(), {{u"MenuItem"_s, item->title()}});
}

} // namespace tarnwick
