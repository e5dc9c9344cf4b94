// SPDX-License-Identifier: MIT
#include "prefs/LoginItems.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

LoginItems& LoginItems::shared()
{
    return SharedPort<LoginItems>::get();
}

void LoginItems::setShared(LoginItems* items)
{
    SharedPort<LoginItems>::set(items);
}

} // namespace tarnwick
