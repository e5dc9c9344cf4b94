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

QPoint shiftedInto(QPoint corner, QSize size, const QRect& screen)
{
    const int rightmost = screen.left() + screen.width() - size.width();
    const int lowest = screen.top() + screen.height() - size.height();
    return {std::max(std::min(corner.x(), rightmost), screen.left()),
            std::max(std::min(corner.y(), lowest), screen.top())};
}

} // namespace tarnwick
