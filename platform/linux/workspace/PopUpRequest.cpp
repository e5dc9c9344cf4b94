// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/PopUpRequest.h"

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/workspace/SwitchAnnouncements.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QScopedValueRollback>

namespace tarnwick {

void PopUpRequest::carryOut(const std::function<void()>& popUp)
{
    if (_busy) {
        MenuTracking::shared().cancel();
        return;
    }
    _announcements.afterSwitchesSoFar(
        [this, popUp] { _announcements.announceFrontThen([this, popUp] { _popUp(popUp); }); });
}

void PopUpRequest::_popUp(const std::function<void()>& popUp)
{
    if (!_backdrop || !_front.current().isNative() || MenuTracking::shared().active()) {
        popUp();
        return;
    }
    const QScopedValueRollback busy(_busy, true);
    const auto backdrop = _backdrop();
    popUp();
}

} // namespace tarnwick
