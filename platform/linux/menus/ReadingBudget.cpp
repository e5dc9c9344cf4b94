// SPDX-License-Identifier: MIT
#include "platform/linux/menus/ReadingBudget.h"

#include "platform/qt/menu/MenuTracking.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace std::chrono_literals;

namespace {

/// By then the event loop has handled what was waiting in the display server's queue.
constexpr auto UntilQueueIsEmpty = 20ms;

} // namespace

ReadingBudget::ReadingBudget() : _afterWhatWasPressed(std::make_unique<QTimer>())
{
    QTimer* timer = _afterWhatWasPressed.get();
    timer->setSingleShot(true);
    timer->setInterval(UntilQueueIsEmpty);
    QObject::connect(timer, &QTimer::timeout, timer, [this] { _renew(); });
    QObject::connect(&MenuTracking::shared(), &MenuTracking::ended, timer, [this] { _renew(); });
}

ReadingBudget::~ReadingBudget() = default;

void ReadingBudget::_renewAfterWhatWasPressed()
{
    _usedUp = true;
    // The event loop gets to this when the handler has returned, which may take long over the menu that it
    // opens.
    QMetaObject::invokeMethod(
        _afterWhatWasPressed.get(),
        [this] {
            if (_usedUp)
                _afterWhatWasPressed->start();
        },
        Qt::QueuedConnection);
}

void ReadingBudget::_renew()
{
    _usedUp = false;
    _afterWhatWasPressed->stop();
    _left = PerReading;
}

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
    if (_budget._left == Deadline::Clock::duration::zero() && MenuTracking::shared().active()) {
        _budget._renewAfterWhatWasPressed();
        return;
    }
    if (std::exchange(_budget._renewalQueued, true))
        return;
    // The event loop gets to this when the handler that is reading now has returned.
    QMetaObject::invokeMethod(
        _budget._afterWhatWasPressed.get(),
        [budget = &_budget] {
            budget->_renewalQueued = false;
            if (!budget->_usedUp)
                budget->_left = PerReading;
        },
        Qt::QueuedConnection);
}

} // namespace tarnwick
