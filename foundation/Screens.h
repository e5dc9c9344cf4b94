// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QList>
#include <QPointF>
#include <QRectF>

namespace tarnwick {

/// The monitors and the pointer, in the desktop's own pixels. Two coordinate spaces: the window system's,
/// origin at the bottom left of the first screen and y growing upward; and the display system's, origin at
/// its top left and y growing downward. GUI thread only.
class Screens : public SharedPort<Screens>
{
public:
    virtual ~Screens() = default;

    /// Frames of all screens, window-system space; the first is the one with the menu bar. Empty without a
    /// display.
    [[nodiscard]] virtual QList<QRectF> frames() const = 0;

    /// Bounds of the main display, display-system space; the zero rectangle without a display.
    [[nodiscard]] virtual QRectF mainDisplayBounds() const = 0;

    /// Where the pointer is now, window-system space.
    [[nodiscard]] virtual QPointF mouseLocation() const = 0;
};

} // namespace tarnwick
