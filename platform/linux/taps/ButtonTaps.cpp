// SPDX-License-Identifier: MIT
#include "platform/linux/taps/ButtonTaps.h"

#include "platform/qt/menu/MenuTracking.h"

#include <QPointer>

#include <utility>
#include <vector>

namespace tarnwick {

namespace {

class Press final : public TappedEvent
{
};

} // namespace

ButtonTaps::ButtonTaps() = default;

ButtonTaps::~ButtonTaps() = default;

EventTapRef ButtonTaps::create(Location /*location*/, Placement /*placement*/, Options /*options*/,
                               quint64 eventsOfInterest, EventTapCallback callback)
{
    if (!(eventsOfInterest & (quint64{1} << EventTapOtherMouseDown)))
        callback = nullptr;
    _taps.emplace(++_lastRef, Tap{std::move(callback)});
    return _lastRef;
}

void ButtonTaps::addSourceToMainRunLoop(EventTapRef tap)
{
    if (const auto found = _taps.find(tap); found != _taps.end())
        found->second.scheduled = true;
}

void ButtonTaps::enable(EventTapRef tap, bool enable)
{
    if (const auto found = _taps.find(tap); found != _taps.end())
        found->second.enabled = enable;
}

void ButtonTaps::release(EventTapRef tap)
{
    _taps.erase(tap);
}

void ButtonTaps::pressed(const Order& order)
{
    // A callback may open a menu, which runs an event loop: not from inside a filter. While one is open no
    // other opens, and told later the press could come when it has just closed.
    const bool menuIsOpen = MenuTracking::shared().active();
    std::vector<EventTapRef> refs; // the newest tap stands at the head
    for (auto tap = _taps.crbegin(); tap != _taps.crend(); ++tap)
        refs.push_back(tap->first);
    // One call each: a callback that opens a menu keeps nobody waiting.
    for (const EventTapRef ref : refs)
        if (menuIsOpen)
            _deliver(ref);
        else
            order([self = QPointer(this), ref] {
                if (self)
                    self->_deliver(ref);
            });
}

void ButtonTaps::_deliver(EventTapRef ref)
{
    const auto tap = _taps.find(ref);
    if (tap == _taps.end() || !tap->second.scheduled || !tap->second.enabled || !tap->second.callback)
        return;
    // The callback may release its own tap.
    const EventTapCallback callback = tap->second.callback;
    const Press press;
    callback(EventTapOtherMouseDown, &press);
}

} // namespace tarnwick

#include "moc_ButtonTaps.cpp"
