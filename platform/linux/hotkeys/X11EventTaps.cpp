// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11EventTaps.h"

#include "platform/linux/input/X11RawInput.h"
#include "platform/qt/application/VisibleWindows.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QPointer>

#include <utility>
#include <vector>

namespace tarnwick {

namespace {

constexpr quint32 MiddleButton = 2;
constexpr quint32 FirstExtraButton = 8;

class RawPress final : public TappedEvent
{
};

} // namespace

X11EventTaps::X11EventTaps(TriggerOrder order) : _order(std::move(order))
{
    connect(&X11RawInput::shared(), &X11RawInput::buttonPressed, this, &X11EventTaps::_buttonPressed);
}

EventTapRef X11EventTaps::create(Location /*location*/, Placement /*placement*/, Options /*options*/,
                                 quint64 eventsOfInterest, EventTapCallback callback)
{
    if (!X11RawInput::shared().available())
        return 0;
    if (!(eventsOfInterest & (quint64{1} << EventTapOtherMouseDown)))
        callback = nullptr;
    _taps.emplace(++_lastRef, Tap{std::move(callback)});
    return _lastRef;
}

void X11EventTaps::addSourceToMainRunLoop(EventTapRef tap)
{
    if (const auto found = _taps.find(tap); found != _taps.end())
        found->second.scheduled = true;
}

void X11EventTaps::enable(EventTapRef tap, bool enable)
{
    if (const auto found = _taps.find(tap); found != _taps.end())
        found->second.enabled = enable;
}

void X11EventTaps::release(EventTapRef tap)
{
    _taps.erase(tap);
}

void X11EventTaps::_buttonPressed(quint32 button)
{
    if (button != MiddleButton && button < FirstExtraButton)
        return;
    // A callback may open a menu, which runs an event loop: not from inside the filter. While one is open no
    // other opens, and told later the press could come when it has just closed.
    const bool menuIsOpen = MenuTracking::shared().active();
    std::vector<EventTapRef> refs; // the newest tap stands at the head
    for (auto tap = _taps.crbegin(); tap != _taps.crend(); ++tap)
        refs.push_back(tap->first);
    // A window of ours may learn a button from the press, and looks for it when it has the release.
    const TriggerOrder& order = anyWindowVisible() ? fromEventLoop : _order;
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

void X11EventTaps::_deliver(EventTapRef ref)
{
    const auto tap = _taps.find(ref);
    if (tap == _taps.end() || !tap->second.scheduled || !tap->second.enabled || !tap->second.callback)
        return;
    // The callback may release its own tap.
    const EventTapCallback callback = tap->second.callback;
    const RawPress press;
    callback(EventTapOtherMouseDown, &press);
}

} // namespace tarnwick

#include "moc_X11EventTaps.cpp"
