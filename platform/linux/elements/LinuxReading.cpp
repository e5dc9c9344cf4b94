// SPDX-License-Identifier: MIT
#include "platform/linux/elements/LinuxReading.h"

namespace tarnwick {

LinuxReading::LinuxReading(const MakeFront& makeFront)
    : windows(X11Connection::shared()), tree(windows, budget), exports(X11Connection::shared(), budget),
      outside(exports.bus, budget), menuBars(windows, {tree, exports, ownMenus}, outside),
      names(tree.bus, tree.applications, windows, budget), front(makeFront(tree.activeWindow))
{
}

} // namespace tarnwick
