// SPDX-License-Identifier: MIT
#include "platform/qt/application/VisibleWindows.h"

#include <QMenu>
#include <gtest/gtest.h>

using namespace tarnwick;

TEST(VisibleWindows, aWindowCountsWhileItIsOnTheScreen)
{
    QWidget window;
    EXPECT_FALSE(anyWindowVisible());
    window.show();
    EXPECT_TRUE(anyWindowVisible());
    window.hide();
    EXPECT_FALSE(anyWindowVisible());
}

TEST(VisibleWindows, whatServesOtherThings_isNoWindow)
{
    for (const Qt::WindowType type : {Qt::Popup, Qt::Tool, Qt::ToolTip}) {
        QWidget window(nullptr, type);
        window.show();
        EXPECT_FALSE(anyWindowVisible()) << type;
    }
    QMenu menu;
    menu.show();
    EXPECT_FALSE(anyWindowVisible());
}
