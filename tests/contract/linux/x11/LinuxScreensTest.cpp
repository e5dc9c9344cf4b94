// SPDX-License-Identifier: MIT
#include "platform/linux/x11/LinuxScreens.h"

#include "tests/contract/foundation/ScreensContract.h"
#include "tests/contract/session/DesktopControl.h"
#include "tests/contract/session/TwoMonitors.h"

using namespace tarnwick;

namespace {

/// `first` is at the origin of what the core knows, wherever it is on the root.
void keepsTheContract(const QList<QRect>& monitors)
{
    const QPoint first = monitors.first().topLeft();
    QList<QRectF> displays;
    for (const QRect& monitor : monitors)
        displays.append(monitor.translated(-first));
    screensContract(LinuxScreens(), displays,
                    [first](QPointF point) { desktop_control::movePointer(first + point.toPoint()); });
}

TEST(LinuxScreens, onOneMonitor_keepTheContract)
{
    keepsTheContract({QRect(0, 0, 1280, 800)});
}

TEST(LinuxScreens, onTwoMonitors_theFirstBeingNeitherLeftmostNorHighest_keepTheContract)
{
    const TwoMonitors monitors;
    ASSERT_EQ(monitors.complaint(), QString());
    keepsTheContract({TwoMonitors::First, TwoMonitors::Left});
}

} // namespace
