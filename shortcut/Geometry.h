// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>

namespace tarnwick {

/// The edges where x or y is largest are outside; nothing is inside an empty rectangle.
[[nodiscard]] inline bool isInside(const QPointF& point, const QRectF& rect)
{
    return point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
           point.y() < rect.bottom();
}

} // namespace tarnwick
