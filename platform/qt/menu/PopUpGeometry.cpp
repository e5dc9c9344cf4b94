// SPDX-License-Identifier: MIT
#include "platform/qt/menu/PopUpGeometry.h"

#include <algorithm>

namespace tarnwick {

namespace {

int fitted(int corner, int extent, int begin, int end)
{
    if (corner + extent > end)
        corner = corner - extent >= begin ? corner - extent : end - extent;
    return std::max(corner, begin);
}

} // namespace

QPoint popUpPosition(QPoint corner, QSize size, const QRect& screen)
{
    return {fitted(corner.x(), size.width(), screen.left(), screen.left() + screen.width()),
            fitted(corner.y(), size.height(), screen.top(), screen.top() + screen.height())};
}

} // namespace tarnwick
