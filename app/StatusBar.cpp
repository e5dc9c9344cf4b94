// SPDX-License-Identifier: MIT
#include "app/StatusBar.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

StatusBar& StatusBar::systemStatusBar()
{
    return SharedPort<StatusBar>::get();
}

void StatusBar::setShared(StatusBar* statusBar)
{
    SharedPort<StatusBar>::set(statusBar);
}

} // namespace tarnwick
