// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/SwitchAnnouncements.h"

#include "platform/qt/menu/MenuTracking.h"

#include <QPointer>

#include <utility>

namespace tarnwick {

SwitchAnnouncements::SwitchAnnouncements(FrontApplication& front, FrontSwitches::OwnerOf ownerOf)
    : _front(front), _switches(front.current(), std::move(ownerOf))
{
    connect(&_front, &FrontApplication::changed, this, &SwitchAnnouncements::_frontChanged);
}

bool SwitchAnnouncements::start(std::function<void()> switched)
{
    if (!_switched) {
        // What has changed before is no switch, not even where it has yet to be told.
        if (!_front.watch())
            return false;
        connect(&MenuTracking::shared(), &MenuTracking::ended, this, &SwitchAnnouncements::_deliver,
                Qt::QueuedConnection);
    }
    _switched = std::move(switched);
    return true;
}

void SwitchAnnouncements::afterSwitchesSoFar(std::function<void()> then)
{
    _front.afterChangesSoFar([self = QPointer(this), then = std::move(then)] {
        if (self)
            self->_whenNothingIsUndelivered(then);
    });
}

void SwitchAnnouncements::announceFrontThen(std::function<void()> then, const FrontHint& hint)
{
    if (const auto front = _front.lookAgainFor(hint))
        _announce(*front);
    _whenNothingIsUndelivered(std::move(then));
}

void SwitchAnnouncements::_whenNothingIsUndelivered(std::function<void()> then)
{
    if (_undelivered == 0)
        then();
    else
        _whenDelivered.push_back(std::move(then));
}

void SwitchAnnouncements::_frontChanged(const FrontWindow& front)
{
    if (_switched)
        _announce(front);
    else
        _switches.startFrom(front);
}

void SwitchAnnouncements::_announce(const FrontWindow& front)
{
    if (!_switched || !_switches.isSwitch(front))
        return;
    ++_undelivered;
    if (MenuTracking::shared().active())
        MenuTracking::shared().cancel(); // its end delivers
    else
        QMetaObject::invokeMethod(this, &SwitchAnnouncements::_deliver, Qt::QueuedConnection);
}

void SwitchAnnouncements::_deliver()
{
    if (_undelivered == 0 || MenuTracking::shared().active())
        return;
    --_undelivered;
    if (_undelivered > 0)
        QMetaObject::invokeMethod(this, &SwitchAnnouncements::_deliver, Qt::QueuedConnection);
    _switched();
    if (_undelivered > 0)
        return;
    // Each from the event loop: the menu that one opens must not keep the next until it has closed.
    for (const auto& then : std::exchange(_whenDelivered, {}))
        QMetaObject::invokeMethod(this, then, Qt::QueuedConnection);
}

} // namespace tarnwick

#include "moc_SwitchAnnouncements.cpp"
