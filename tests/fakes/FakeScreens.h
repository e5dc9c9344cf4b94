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

    /// Lever: the monitors stand so in display-system space, the first one at its origin.
    void arrange(const QList<QRectF>& displays)
    {
        displayBounds = displays.value(0);
        screenFrames.clear();
        for (const QRectF& display : displays)
            screenFrames.append({_turnedOver(display.bottomLeft()), display.size()});
    }

    /// Lever: the pointer goes to a point of display-system space.
    void movePointer(QPointF point) { mouse = _turnedOver(point); }

    [[nodiscard]] QList<QRectF> frames() const override { return screenFrames; }
    [[nodiscard]] QRectF mainDisplayBounds() const override { return displayBounds; }
    [[nodiscard]] QPointF mouseLocation() const override { return mouse; }

private:
    [[nodiscard]] QPointF _turnedOver(QPointF point) const
    {
        return {point.x(), displayBounds.height() - point.y()};
    }
};

} // namespace tarnwick
