// SPDX-License-Identifier: MIT
#include "shortcut/DropShadow.h"

#include <QPainter>

#include <cmath>
#include <numbers>

namespace tarnwick {

// A shadow is the path laid over itself many times, thinly, at points around its place: the mean of the
// copies is the blurred shape. It needs no pixels of its own, so it is as sharp as the device, and these
// shapes are small.
void fillWithDropShadow(QPainter& painter, const QPainterPath& path, const QColor& color,
                        const DropShadow& shadow)
{
    constexpr int Rings = 3;
    constexpr int CopiesARing = 8;
    constexpr int Copies = 1 + Rings * CopiesARing;
    // So thin that all copies together come to the colour's own alpha.
    const double alpha = 1 - std::pow(1 - double(shadow.color.alphaF()), 1.0 / Copies);
    QColor thin = shadow.color;
    thin.setAlphaF(static_cast<float>(alpha));

    painter.fillPath(path.translated(shadow.offset), thin);
    for (int ring = 1; ring <= Rings; ++ring) {
        const double radius = shadow.blurRadius * ring / Rings;
        for (int copy = 0; copy < CopiesARing; ++copy) {
            const double angle = 2 * std::numbers::pi * (copy + ring * 0.5) / CopiesARing;
            painter.fillPath(
                path.translated(shadow.offset + radius * QPointF(std::cos(angle), std::sin(angle))), thin);
        }
    }
    painter.fillPath(path, color);
}

} // namespace tarnwick
