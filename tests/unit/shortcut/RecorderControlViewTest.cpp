// SPDX-License-Identifier: MIT
#include "shortcut/RecorderControlView.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

/// A view of a field of 180 by 22 points at (20, 30) of its window.
class RecorderControlViewTest : public ::testing::Test
{
protected:
    RecorderControlViewTest()
    {
        control.setGeometry(20, 30, 180, 22);
        other.setGeometry(20, 60, 180, 22);
        window.resize(300, 120);
    }

    void show()
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QWidget window;
    QLineEdit control{&window};
    QLineEdit other{&window};
    int changes = 0;
    RecorderControlView view{control, [this] { ++changes; }};
};

} // namespace

TEST_F(RecorderControlViewTest, points_areUpsideDown)
{
    control.setLayoutDirection(Qt::LeftToRight);
    EXPECT_EQ(view.bounds(), QRectF(0, 0, 180, 22));
    EXPECT_EQ(view.convertPoint({10, 2}), QPointF(10, 20));
    EXPECT_EQ(view.convertPointFromWindow({30, 32}), QPointF(10, 20));
    EXPECT_FALSE(view.isRightToLeft());
}

TEST_F(RecorderControlViewTest, rightToLeft_pointsAreMirrored)
{
    control.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(view.convertPoint({10, 2}), QPointF(170, 20));
    EXPECT_EQ(view.convertPointFromWindow({30, 32}), QPointF(170, 20));
    EXPECT_TRUE(view.isRightToLeft());
}

TEST_F(RecorderControlViewTest, everyChangeIsTold_butNotTheFocusRing)
{
    view.setNeedsDisplay();
    view.setNeedsDisplay();
    EXPECT_EQ(changes, 2);
    view.setKeyboardFocusRingNeedsDisplay();
    EXPECT_EQ(changes, 2);
}

TEST_F(RecorderControlViewTest, firstResponder_isTheFocusWidgetOfTheWindow)
{
    show();
    other.setFocus();
    EXPECT_FALSE(view.isFirstResponder());
    EXPECT_FALSE(view.showsFirstResponder());
    view.makeFirstResponder();
    EXPECT_TRUE(view.isFirstResponder());
    EXPECT_TRUE(view.showsFirstResponder());
    EXPECT_TRUE(view.windowIsKey());
    EXPECT_TRUE(view.acceptsFirstMouse({}));
    window.hide();
    EXPECT_FALSE(view.windowIsKey());
    EXPECT_TRUE(view.isFirstResponder()) << "of its window, whichever is in front";
}

TEST_F(RecorderControlViewTest, rectangles_areTrackedUntilTheyAreRemoved)
{
    QList<bool> crossed;
    const auto note = [&crossed](bool entered) { crossed.append(entered); };
    const auto tag = view.addTrackingRect({10, 0, 10, 22}, false);
    view.trackingRects().pointerMoved({15, 11}, note);
    EXPECT_EQ(crossed, QList<bool>{true});
    view.removeTrackingRect(tag);
    view.trackingRects().pointerMoved({50, 11}, note);
    EXPECT_EQ(crossed, QList<bool>{true});
}
