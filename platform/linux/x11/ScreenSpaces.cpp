// SPDX-License-Identifier: MIT
#include "platform/linux/x11/ScreenSpaces.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace tarnwick {

namespace {

int distance(const QRect& rect, QPoint point)
{
    const int x = std::max({rect.left() - point.x(), 0, point.x() - rect.right()});
    const int y = std::max({rect.top() - point.y(), 0, point.y() - rect.bottom()});
    return x + y;
}

QRect firstPixels(const QList<Monitor>& monitors)
{
    return monitors.isEmpty() ? QRect() : monitors.first().pixels;
}

} // namespace

QList<Monitor> currentMonitors()
{
    QList<Monitor> monitors;
    const auto screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const double scale = screen->devicePixelRatio();
        const QRect geometry = screen->geometry();
        monitors.append({QRect(geometry.topLeft(), (QSizeF(geometry.size()) * scale).toSize()), scale});
    }
    return monitors;
}

QPointF windowSystemPoint(QPoint pixel, const QList<Monitor>& monitors)
{
    const QRect first = firstPixels(monitors);
    return {static_cast<double>(pixel.x() - first.left()),
            static_cast<double>(first.top() + first.height() - pixel.y())};
}

QPoint pixelAt(QPointF windowSystemPoint, const QList<Monitor>& monitors)
{
    const QRect first = firstPixels(monitors);
    const QPoint point = windowSystemPoint.toPoint();
    return {first.left() + point.x(), first.top() + first.height() - point.y()};
}

QRectF windowSystemFrame(const QRect& pixels, const QList<Monitor>& monitors)
{
    const QPoint bottomLeft(pixels.left(), pixels.top() + pixels.height());
    return {windowSystemPoint(bottomLeft, monitors), QSizeF(pixels.size())};
}

QPointF displaySystemPoint(QPoint pixel, const QList<Monitor>& monitors)
{
    return pixel - firstPixels(monitors).topLeft();
}

QPoint pixelAtDisplaySystemPoint(QPointF point, const QList<Monitor>& monitors)
{
    return point.toPoint() + firstPixels(monitors).topLeft();
}

QPoint toolkitPoint(QPoint pixel, const QList<Monitor>& monitors)
{
    const auto nearest =
        std::min_element(monitors.cbegin(), monitors.cend(), [&](const Monitor& a, const Monitor& b) {
            return distance(a.pixels, pixel) < distance(b.pixels, pixel);
        });
    if (nearest == monitors.cend())
        return pixel;
    const QPoint corner = nearest->pixels.topLeft();
    return corner + (QPointF(pixel - corner) / nearest->scale).toPoint();
}

} // namespace tarnwick
