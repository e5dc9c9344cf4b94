// SPDX-License-Identifier: MIT
#include "platform/linux/X11EventTaps.h"

#include "platform/linux/X11RawInput.h"
#include "platform/qt/MenuTracking.h"

namespace tarnwick {

namespace {

constexpr quint32 middleButton = 2;
constexpr quint32 firstExtraButton = 8;

class RawPress final : public TappedEvent
{
};

} // namespace

X11EventTaps::X11EventTaps()
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
    if (button != middleButton && button < firstExtraButton)
        return;
    // A press while a menu is open triggers nothing; it may close that menu before a queued call comes.
    if (MenuTracking::shared().active())
        return;
    // The newest tap stands at the head. One call each: a callback that opens a menu keeps nobody waiting.
    for (auto tap = _taps.crbegin(); tap != _taps.crend(); ++tap)
        QMetaObject::invokeMethod(
            this, [this, ref = tap->first] { _deliver(ref); }, Qt::QueuedConnection);
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
