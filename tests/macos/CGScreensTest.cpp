// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/CGScreens.h"

#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class CGScreensTest : public MacTest
{
protected:
    CGScreens screens;
};

TEST_F(CGScreensTest, frames_ofOneScreen_startAtTheOrigin)
{
    mac.displays = {QRectF(0, 0, 1440, 900)};
    EXPECT_EQ(screens.frames(), QList<QRectF>{QRectF(0, 0, 1440, 900)});
    EXPECT_EQ(screens.mainDisplayBounds(), QRectF(0, 0, 1440, 900));
}

TEST_F(CGScreensTest, frames_ofSeveralScreens_haveTheirOriginAtTheMainScreensBottomLeft)
{
    struct Row
    {
        const char* arrangement;
        QRectF bounds; // top left of the main display, y down
        QRectF frame;  // bottom left of the main display, y up
    };
    const Row rows[] = {
        {"above", {0, -1080, 1920, 1080}, {0, 900, 1920, 1080}},
        {"below", {0, 900, 1920, 1080}, {0, -1080, 1920, 1080}},
        {"right, tops aligned", {1440, 0, 1920, 1080}, {1440, -180, 1920, 1080}},
        {"left, bottoms aligned", {-1920, -180, 1920, 1080}, {-1920, 0, 1920, 1080}},
    };
    for (const Row& row : rows) {
        mac.displays = {QRectF(0, 0, 1440, 900), row.bounds};
        EXPECT_EQ(screens.frames(), (QList<QRectF>{QRectF(0, 0, 1440, 900), row.frame})) << row.arrangement;
    }
}

TEST_F(CGScreensTest, frames_withoutADisplay_areEmpty)
{
    mac.displays.clear();
    EXPECT_EQ(screens.frames(), QList<QRectF>());
    EXPECT_EQ(screens.mainDisplayBounds(), QRectF());
    mac.fail(u"CGGetActiveDisplayList"_s, 1001);
    EXPECT_EQ(screens.frames(), QList<QRectF>());
}

TEST_F(CGScreensTest, mouseLocation_growsUpwardFromTheBottomLeft)
{
    mac.pointer = {100, 200};
    EXPECT_EQ(screens.mouseLocation(), QPointF(100, 700));
    mac.pointer = {-5.5, 950};
    EXPECT_EQ(screens.mouseLocation(), QPointF(-5.5, -50));
}

TEST_F(CGScreensTest, mouseLocation_thatCannotBeTold_isTheOrigin)
{
    mac.pointer = {100, 200};
    mac.fail(u"CGEventCreate"_s);
    EXPECT_EQ(screens.mouseLocation(), QPointF());
}

} // namespace tarnwick
