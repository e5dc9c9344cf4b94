// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuTracking.h"

namespace tarnwick {

MenuTracking& MenuTracking::shared()
{
    static MenuTracking tracking;
    return tracking;
}

void MenuTracking::begin()
{
    _active = true;
}

void MenuTracking::end()
{
    _active = false;
    Q_EMIT ended();
}

void MenuTracking::cancel()
{
    if (_active)
        Q_EMIT cancelRequested();
}

} // namespace tarnwick

#include "moc_MenuTracking.cpp"
