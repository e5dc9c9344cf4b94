// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/PopUpRequest.h"

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/workspace/SwitchAnnouncements.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace tarnwick {

void PopUpRequest::carryOut(const FrontHint& hint, const std::function<void()>& popUp)
{
    if (_busy) {
        MenuTracking::shared().cancel();
        return;
    }
    auto expected = _surroundings.expectMenu ? _surroundings.expectMenu() : nullptr;
    _announcements.afterSwitchesSoFar([this, hint, popUp, expected = std::move(expected)]() mutable {
        _announcements.announceFrontThen(
            [this, hint, popUp, expected = std::move(expected)] { _popUp(hint.pointer, popUp); }, hint);
    });
}

void PopUpRequest::_popUp(std::optional<QPoint> pointer, const std::function<void()>& popUp)
{
    const bool isTold = pointer && _surroundings.setPointer;
    if (isTold)
        _surroundings.setPointer(pointer);
    const auto forget = qScopeGuard([&] {
        if (isTold)
            _surroundings.setPointer({});
    });
    if (!_surroundings.backdrop || !_front.current().isNative() || MenuTracking::shared().active())
        popUp();
    else
        _popUpOverNative(isTold, popUp);
}

void PopUpRequest::_popUpOverNative(bool pointerIsTold, const std::function<void()>& popUp)
{
    const QScopedValueRollback busy(_busy, true);
    const auto backdrop = _surroundings.backdrop(pointerIsTold);
    popUp();
}

} // namespace tarnwick
