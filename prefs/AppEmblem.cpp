// SPDX-License-Identifier: MIT
#include "prefs/AppEmblem.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tarnwick {

namespace {

constexpr int Side = 64;

void drawSheet(QPainter& painter, const QRectF& rect, double radius)
{
    // A soft edge below, so that the menu lifts off the tile.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 40));
    painter.drawRoundedRect(rect.translated(0, 1.5), radius, radius);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(rect, radius, radius);
}

void drawPointer(QPainter& painter)
{
    QPainterPath arrow;
    arrow.moveTo(17, 17);
    for (const QPointF& corner : {QPointF(17, 34), QPointF(21, 30.4), QPointF(23.8, 36.6), QPointF(27, 35.2),
                                  QPointF(24.2, 29.2), QPointF(29.4, 28.8)})
        arrow.lineTo(corner);
    arrow.closeSubpath();
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(QColor(0x20, 0x2A, 0x38));
    painter.drawPath(arrow);
}

} // namespace

AppEmblem::AppEmblem(QWidget* parent) : QWidget(parent)
{
    setFixedSize(Side, Side);
    setAccessibleName(QStringLiteral("Tarnwick"));
}

QSize AppEmblem::sizeHint() const
{
    return {Side, Side};
}

void AppEmblem::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient tile(0, 0, 0, Side);
    tile.setColorAt(0, QColor(0x4F, 0x9B, 0xF0));
    tile.setColorAt(1, QColor(0x26, 0x63, 0xB8));
    painter.setPen(Qt::NoPen);
    painter.setBrush(tile);
    painter.drawRoundedRect(QRectF(1, 1, Side - 2, Side - 2), 14, 14);

    drawSheet(painter, {10, 10, 44, 9}, 3); // the bar
    painter.setBrush(QColor(0x26, 0x63, 0xB8));
    for (const double x : {14.0, 24.0, 34.0})
        painter.drawRoundedRect(QRectF(x, 13, 7, 3), 1.5, 1.5);
    drawSheet(painter, {22, 23, 30, 30}, 4); // the menu
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x4F, 0x9B, 0xF0));
    painter.drawRoundedRect(QRectF(24.5, 27, 25, 7), 2, 2); // the highlighted item
    painter.setBrush(QColor(0xA8, 0xB4, 0xC4));
    for (const double y : {38.0, 43.0, 48.0})
        painter.drawRoundedRect(QRectF(28, y, y == 43 ? 14 : 19, 2.5), 1.2, 1.2);
    drawPointer(painter);
}

} // namespace tarnwick

#include "moc_AppEmblem.cpp"
