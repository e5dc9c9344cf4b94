// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Screens.h"

#include <QPoint>

#include <optional>

namespace tarnwick {

/// Monitors and pointer in X root pixels.
class LinuxScreens final : public Screens
{
public:
    [[nodiscard]] QList<QRectF> frames() const override;
    [[nodiscard]] QRectF mainDisplayBounds() const override;
    /// Asks the server, since the toolkit knows of the pointer over its own windows only; (0, 0) without one:
    /// on Wayland itself nobody tells it before a surface lies under the pointer, and the menu presenter, for
    /// which it is asked, finds the place itself.
    [[nodiscard]] QPointF mouseLocation() const override;

    /// Where the pointer is by the word of one who sees it everywhere, in pixels; a place that is on no
    /// monitor is none. With nothing, the server is asked again.
    void setPointer(std::optional<QPoint> pixel) { _pointer = pixel; }

private:
    std::optional<QPoint> _pointer;
};

} // namespace tarnwick
