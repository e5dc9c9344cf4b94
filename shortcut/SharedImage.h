// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>

class QPainter;

namespace tarnwick {

/// A small image that is drawn in code at whatever scale it is shown.
class SharedImage
{
public:
    /// Draws the image into (0, 0, size) of the painter, y growing upward.
    using Draw = void (*)(QPainter& painter, const QSizeF& size);

    SharedImage(const QSizeF& size, Draw function) : _size(size), _draw(function) {}

    /// Points.
    [[nodiscard]] QSizeF size() const { return _size; }

    /// Draws it, scaled, into `target`, in the coordinates of the painter, y growing downward. `fraction` is
    /// its opacity; `mirrored` swaps left and right.
    void draw(QPainter& painter, const QRectF& target, double fraction, bool mirrored = false) const;

private:
    QSizeF _size;
    Draw _draw;
};

} // namespace tarnwick
