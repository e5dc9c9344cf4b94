// SPDX-License-Identifier: MIT
#include "app/HotKeys.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

HotKeys& HotKeys::shared()
{
    return SharedPort<HotKeys>::get();
}

void HotKeys::setShared(HotKeys* hotKeys)
{
    SharedPort<HotKeys>::set(hotKeys);
}

} // namespace tarnwick
