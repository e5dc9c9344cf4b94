// SPDX-License-Identifier: MIT
#include "shortcut/SharedImage.h"

#include <QPainter>

namespace tarnwick {

void SharedImage::draw(QPainter& painter, const QRectF& target, double fraction, bool mirrored) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * fraction);
    painter.translate(mirrored ? target.right() : target.left(), target.bottom());
    painter.scale(mirrored ? -1 : 1, -1);
    _draw(painter, target.size());
    painter.restore();
}

} // namespace tarnwick
