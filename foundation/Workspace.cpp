// SPDX-License-Identifier: MIT
#include "foundation/Workspace.h"

#include "foundation/SharedPort.h"

namespace tarnwick {

Workspace& Workspace::shared()
{
    return SharedPort<Workspace>::get();
}

void Workspace::setShared(Workspace* workspace)
{
    SharedPort<Workspace>::set(workspace);
}

} // namespace tarnwick
