// SPDX-License-Identifier: MIT
#include "menu/MenuPresenter.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

MenuPresenter& MenuPresenter::shared()
{
    return SharedPort<MenuPresenter>::get();
}

void MenuPresenter::setShared(MenuPresenter* presenter)
{
    SharedPort<MenuPresenter>::set(presenter);
}

} // namespace tarnwick
