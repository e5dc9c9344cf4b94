// SPDX-License-Identifier: MIT
#include "foundation/DefaultsStore.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

DefaultsStore& DefaultsStore::shared()
{
    return SharedPort<DefaultsStore>::get();
}

void DefaultsStore::setShared(DefaultsStore* store)
{
    SharedPort<DefaultsStore>::set(store);
}

} // namespace tarnwick
