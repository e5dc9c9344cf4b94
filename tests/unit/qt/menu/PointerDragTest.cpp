// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PointerDrag.h"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using Step = PointerDrag::Step;

TEST(PointerDrag, aPointerThatHasNotMoved_meansNothing_norItsRelease)
{
    PointerDrag drag;
    drag.start(QPoint(100, 100));
    EXPECT_EQ(drag.follow(QPoint(100, 100), true), Step::None);
    EXPECT_EQ(drag.follow(QPoint(106, 104), true), Step::None) << "a hand that trembles";
    EXPECT_EQ(drag.follow(QPoint(106, 104), false), Step::None);
}

TEST(PointerDrag, aPointerThatHasMoved_isDragged_alsoBackToWhereItWas)
{
    PointerDrag drag;
    drag.start(QPoint(100, 100));
    EXPECT_EQ(drag.follow(QPoint(107, 104), true), Step::Moved);
    EXPECT_EQ(drag.follow(QPoint(100, 100), true), Step::Moved);
    EXPECT_EQ(drag.follow(QPoint(100, 100), false), Step::Released);
    EXPECT_EQ(drag.follow(QPoint(100, 100), false), Step::None) << "released once";
}

} // namespace
} // namespace tarnwick
