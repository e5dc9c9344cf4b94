// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Screens.h"

namespace tarnwick {

/// Displays and pointer by Quartz, in points.
class CGScreens final : public Screens
{
public:
    [[nodiscard]] QList<QRectF> frames() const override;
    [[nodiscard]] QRectF mainDisplayBounds() const override;
    [[nodiscard]] QPointF mouseLocation() const override;
};

} // namespace tarnwick
