// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopParts.h"
#include "platform/linux/xdg/XdgSession.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// Before there is a second thread. What menus and answers take is needed for a moment, a few times a day:
/// the C library is to give it back, however large it was, and not to keep some for each thread.
void keepLittleMemory()
{
#ifdef __GLIBC__
    constexpr int OwnMapping = 512 * 1024; // bytes, from which on a block has one
    constexpr int KeptAtEnd = 1024 * 1024; // bytes
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, OwnMapping);
    mallopt(M_TRIM_THRESHOLD, KeptAtEnd);
#endif
}

} // namespace

Desktop openDesktop(int& argc, char** argv)
{
    keepLittleMemory();
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
