// SPDX-License-Identifier: MIT
#include "tests/contract/foundation/ScreensContract.h"
#include "tests/fakes/FakeScreens.h"

using namespace tarnwick;

TEST(FakeScreens, keepsThePromisesOfScreens)
{
    FakeScreens screens;
    const auto movePointer = [&screens](QPointF point) { screens.movePointer(point); };
    screensContract(screens, {QRectF(0, 0, 1440, 900)}, movePointer);
    const QList<QList<QRectF>> arrangements{
        {QRectF(0, 0, 1920, 1080), QRectF(-480, -100, 480, 120), QRectF(1920, 300, 800, 600)},
        {QRectF(0, 0, 100, 50)},
        {},
    };
    for (const auto& displays : arrangements) {
        screens.arrange(displays);
        screensContract(screens, displays, movePointer);
    }
}
