// SPDX-License-Identifier: MIT
#include "foundation/EventSource.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

EventSource& EventSource::shared()
{
    return SharedPort<EventSource>::get();
}

void EventSource::setShared(EventSource* source)
{
    SharedPort<EventSource>::set(source);
}

} // namespace tarnwick
