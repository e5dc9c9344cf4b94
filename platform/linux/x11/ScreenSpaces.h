// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

namespace tarnwick {

/// One monitor: where it is in X root pixels, and how many of them one unit of the toolkit's coordinates
/// has. The toolkit leaves a monitor's top left corner where it is and scales from there.
struct Monitor
{
    QRect pixels;
    double scale = 1;
};

/// The monitors as the toolkit knows them, the primary one first; empty without a display.
[[nodiscard]] QList<Monitor> currentMonitors();

/// Between X root pixels (origin at the top left of the root window, y downward) and the window system's
/// space (the same pixels, origin at the bottom left of the first monitor, y upward).
[[nodiscard]] QPointF windowSystemPoint(QPoint pixel, const QList<Monitor>& monitors);
[[nodiscard]] QPoint pixelAt(QPointF windowSystemPoint, const QList<Monitor>& monitors);
[[nodiscard]] QRectF windowSystemFrame(const QRect& pixels, const QList<Monitor>& monitors);

/// Between X root pixels and the display system's space (the same pixels, origin at the top left of the first
/// monitor, y downward).
[[nodiscard]] QPointF displaySystemPoint(QPoint pixel, const QList<Monitor>& monitors);
[[nodiscard]] QPoint pixelAtDisplaySystemPoint(QPointF point, const QList<Monitor>& monitors);

/// The toolkit's coordinates of an X root pixel; a pixel on no monitor is converted by the nearest one.
[[nodiscard]] QPoint toolkitPoint(QPoint pixel, const QList<Monitor>& monitors);

} // namespace tarnwick
