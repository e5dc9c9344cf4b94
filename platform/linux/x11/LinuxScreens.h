// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Screens.h"

namespace tarnwick {

/// Monitors and pointer in X root pixels.
class LinuxScreens final : public Screens
{
public:
    [[nodiscard]] QList<QRectF> frames() const override;
    [[nodiscard]] QRectF mainDisplayBounds() const override;
    /// Asks the server, since the toolkit knows of the pointer over its own windows only; (0, 0) without one.
    [[nodiscard]] QPointF mouseLocation() const override;
};

} // namespace tarnwick
