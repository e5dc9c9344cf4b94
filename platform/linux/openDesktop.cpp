// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"
#include "platform/linux/xdg/XdgSession.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

Desktop openDesktop(int& argc, char** argv)
{
    auto wayland = openWaylandDesktop(argc, argv);
    return wayland ? std::move(*wayland) : openX11Desktop(argc, argv);
}

QString desktopOfThisBuild()
{
    const auto onWayland = canRunOnWayland();
    const QString built = onWayland ? u"Built with LayerShellQt, "_s : u"Built without LayerShellQt, "_s;
    if (onWayland == true)
        return built + u"runs here on Wayland itself."_s;
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        return built + u"finds no display here to run on."_s;
    return built + (xdg_session::isWayland() ? u"runs here on XWayland."_s : u"runs here on X11."_s);
}

} // namespace tarnwick
