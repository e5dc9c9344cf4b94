// SPDX-License-Identifier: MIT
#include "platform/linux/ReadingBudget.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

ReadingBudget::Reading::Reading(ReadingBudget& budget)
    : _budget(budget), _outermost(!budget._current), _start(Deadline::Clock::now()),
      _deadline(budget._current.value_or(Deadline::in(budget._left)))
{
    _budget._current = _deadline;
}

ReadingBudget::Reading::~Reading()
{
    if (!_outermost)
        return;
    _budget._current.reset();
    _budget._left =
        std::max(_budget._left - (Deadline::Clock::now() - _start), Deadline::Clock::duration::zero());
    if (std::exchange(_budget._renewalQueued, true))
        return;
    // The event loop gets to this when the handler that is reading now has returned.
    QMetaObject::invokeMethod(
        &_budget,
        [budget = &_budget] {
            budget->_left = PerEvent;
            budget->_renewalQueued = false;
        },
        Qt::QueuedConnection);
}

} // namespace tarnwick
