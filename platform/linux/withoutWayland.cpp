// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"

namespace tarnwick {

std::optional<Desktop> openWaylandDesktop(int& /*argc*/, char** /*argv*/)
{
    return std::nullopt;
}

std::optional<bool> canRunOnWayland()
{
    return std::nullopt;
}

std::optional<Inspection> openWaylandInspection(int& /*argc*/, char** /*argv*/)
{
    return std::nullopt;
}

} // namespace tarnwick
