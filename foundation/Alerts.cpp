// SPDX-License-Identifier: MIT
#include "foundation/Alerts.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Alerts& Alerts::shared()
{
    return SharedPort<Alerts>::get();
}

void Alerts::setShared(Alerts* alerts)
{
    SharedPort<Alerts>::set(alerts);
}

} // namespace tarnwick
