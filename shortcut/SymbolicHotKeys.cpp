// SPDX-License-Identifier: MIT
#include "shortcut/SymbolicHotKeys.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

SymbolicHotKeys& SymbolicHotKeys::shared()
{
    return SharedPort<SymbolicHotKeys>::get();
}

void SymbolicHotKeys::setShared(SymbolicHotKeys* hotKeys)
{
    SharedPort<SymbolicHotKeys>::set(hotKeys);
}

} // namespace tarnwick
