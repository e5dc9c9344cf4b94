// SPDX-License-Identifier: MIT
#include "mouse/EventTaps.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

EventTaps& EventTaps::shared()
{
    return SharedPort<EventTaps>::get();
}

void EventTaps::setShared(EventTaps* taps)
{
    SharedPort<EventTaps>::set(taps);
}

} // namespace tarnwick
