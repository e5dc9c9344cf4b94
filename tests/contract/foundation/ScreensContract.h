// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Screens.h"

#include <gtest/gtest.h>

#include <functional>

namespace tarnwick {

/// What the core relies on of the screens. `displays` are how the monitors stand in the display system's
/// space, the first one at its origin; `movePointer` moves the pointer to a point of that space.
inline void screensContract(const Screens& screens, const QList<QRectF>& displays,
                            const std::function<void(QPointF point)>& movePointer)
{
    if (displays.isEmpty()) {
        EXPECT_EQ(screens.frames(), QList<QRectF>());
        EXPECT_EQ(screens.mainDisplayBounds(), QRectF());
        return;
    }
    const double height = displays.first().height();
    QList<QRectF> frames;
    for (const QRectF& display : displays)
        frames.append(
            {display.x(), height - display.y() - display.height(), display.width(), display.height()});
    EXPECT_EQ(screens.frames(), frames) << "turned over at the first screen, whose bottom left is the origin";
    EXPECT_EQ(screens.mainDisplayBounds(), displays.first()) << "the other space begins at its top left";
    for (const QRectF& display : displays) {
        for (const QPointF point :
             {display.topLeft() + QPointF(10, 20), display.center().toPoint().toPointF()}) {
            movePointer(point);
            EXPECT_EQ(screens.mouseLocation(), QPointF(point.x(), height - point.y()))
                << point.x() << ", " << point.y();
        }
    }
}

} // namespace tarnwick
