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

TEST(LinuxScreens, aPointerThatIsTold_goesBeforeTheServersWord_ifItIsOnAMonitor)
{
    const TwoMonitors monitors;
    ASSERT_EQ(monitors.complaint(), QString());
    const QPoint told = TwoMonitors::First.center() + QPoint(7, -9);
    const auto locationAt = [](QPoint pixel) {
        desktop_control::movePointer(pixel);
        return LinuxScreens().mouseLocation();
    };
    const QPointF locationTold = locationAt(told);
    const QPointF locationSeen = locationAt(TwoMonitors::Left.center());
    ASSERT_NE(locationSeen, locationTold);
    LinuxScreens screens;
    screens.setPointer(told);
    EXPECT_EQ(screens.mouseLocation(), locationTold);
    screens.setPointer(QPoint(100'000, 5));
    EXPECT_EQ(screens.mouseLocation(), locationSeen) << "nobody can be there";
    screens.setPointer(told);
    screens.setPointer({});
    EXPECT_EQ(screens.mouseLocation(), locationSeen);
}

} // namespace
