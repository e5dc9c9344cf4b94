// SPDX-License-Identifier: MIT
#include "ax/Accessibility.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Accessibility& Accessibility::shared()
{
    return SharedPort<Accessibility>::get();
}

void Accessibility::setShared(Accessibility* accessibility)
{
    SharedPort<Accessibility>::set(accessibility);
}

} // namespace tarnwick
