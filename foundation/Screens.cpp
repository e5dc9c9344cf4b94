// SPDX-License-Identifier: MIT
#include "foundation/Screens.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Screens& Screens::shared()
{
    return SharedPort<Screens>::get();
}

void Screens::setShared(Screens* screens)
{
    SharedPort<Screens>::set(screens);
}

} // namespace tarnwick
