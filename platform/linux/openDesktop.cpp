// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"

namespace tarnwick {

Desktop openDesktop(int& argc, char** argv)
{
    auto wayland = openWaylandDesktop(argc, argv);
    return wayland ? std::move(*wayland) : openX11Desktop(argc, argv);
}

} // namespace tarnwick
