// SPDX-License-Identifier: MIT
#include "foundation/Fonts.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Fonts& Fonts::shared()
{
    return SharedPort<Fonts>::get();
}

void Fonts::setShared(Fonts* fonts)
{
    SharedPort<Fonts>::set(fonts);
}

} // namespace tarnwick
