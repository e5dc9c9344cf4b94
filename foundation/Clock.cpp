// SPDX-License-Identifier: MIT
#include "foundation/Clock.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Clock& Clock::shared()
{
    return SharedPort<Clock>::get();
}

Clock* Clock::sharedOrNull()
{
    return SharedPort<Clock>::find();
}

void Clock::setShared(Clock* clock)
{
    SharedPort<Clock>::set(clock);
}

} // namespace tarnwick
