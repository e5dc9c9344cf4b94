// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11EventTaps.h"

#include "platform/linux/input/X11RawInput.h"
#include "platform/qt/application/VisibleWindows.h"

#include <utility>

namespace tarnwick {

namespace {

constexpr quint32 MiddleButton = 2;
constexpr quint32 FirstExtraButton = 8;

} // namespace

X11EventTaps::X11EventTaps(TriggerOrder order) : _order(std::move(order))
{
    connect(&X11RawInput::shared(), &X11RawInput::buttonPressed, this, &X11EventTaps::_buttonPressed);
}

EventTapRef X11EventTaps::create(Location location, Placement placement, Options options,
                                 quint64 eventsOfInterest, EventTapCallback callback)
{
    if (!X11RawInput::shared().available())
        return 0;
    return ButtonTaps::create(location, placement, options, eventsOfInterest, std::move(callback));
}

void X11EventTaps::_buttonPressed(quint32 button)
{
    if (button != MiddleButton && button < FirstExtraButton)
        return;
    // A window of ours may learn a button from the press, and looks for it when it has the release.
    pressed(anyWindowVisible() ? fromEventLoop : _order);
}

} // namespace tarnwick

#include "moc_X11EventTaps.cpp"
