// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Screens.h"

namespace tarnwick {

/// One screen of 1440 by 900 pixels, until a test says otherwise.
class FakeScreens final : public Screens
{
public:
    QList<QRectF> screenFrames{QRectF(0, 0, 1440, 900)}; ///< lever: window-system space
    QRectF displayBounds{0, 0, 1440, 900};               ///< lever: display-system space
    QPointF mouse;                                       ///< lever: window-system space

    [[nodiscard]] QList<QRectF> frames() const override { return screenFrames; }
    [[nodiscard]] QRectF mainDisplayBounds() const override { return displayBounds; }
    [[nodiscard]] QPointF mouseLocation() const override { return mouse; }
};

} // namespace tarnwick
