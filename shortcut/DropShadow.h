// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>

class QPainter;

namespace tarnwick {

/// Points, in the coordinates of the painter.
struct DropShadow
{
    QColor color;
    double blurRadius = 0;
    QPointF offset;
};

/// Fills `path` with `color` over its shadow. Looks the same at every scale of the painter.
void fillWithDropShadow(QPainter& painter, const QPainterPath& path, const QColor& color,
                        const DropShadow& shadow);

} // namespace tarnwick
