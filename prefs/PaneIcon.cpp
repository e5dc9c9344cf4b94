// SPDX-License-Identifier: MIT
#include "prefs/PaneIcon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPolygonF>

#include <cmath>
#include <numbers>

namespace tarnwick {

namespace {

// All three are drawn on a square of 32 units with lines of this width.
constexpr double Side = 32;
constexpr double LineWidth = 2;

struct Inks
{
    QColor line;
    QColor accent;
};

void drawKeycap(QPainter& painter, const Inks& inks)
{
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(3, 4, 26, 24), 5, 5);
    painter.setPen(QPen(inks.line, 1.2));
    painter.drawRoundedRect(QRectF(7, 6.5, 18, 16.5), 3.5, 3.5);
    // The letter that the hot key has at first.
    painter.setPen(QPen(inks.accent, 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{12.5, 10.5}, {19.5, 10.5}, {12.5, 19}, {19.5, 19}}));
}

QPolygonF gear()
{
    constexpr int Teeth = 8;
    constexpr double Outer = 13;
    constexpr double Inner = 9.8;
    constexpr double ToothWidth = 0.52; // share of a turn of one tooth
    QPolygonF outline;
    for (int tooth = 0; tooth < Teeth; ++tooth) {
        const double turn = 2 * std::numbers::pi / Teeth;
        const double middle = tooth * turn - std::numbers::pi / 2;
        const auto corner = [&](double radius, double offset) {
            return QPointF(Side / 2 + radius * std::cos(middle + offset * turn),
                           Side / 2 + radius * std::sin(middle + offset * turn));
        };
        outline << corner(Inner, -ToothWidth / 2) << corner(Outer, -ToothWidth / 3)
                << corner(Outer, ToothWidth / 3) << corner(Inner, ToothWidth / 2);
    }
    return outline;
}

void drawGear(QPainter& painter, const Inks& inks)
{
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(gear());
    painter.setPen(QPen(inks.accent, 2.4));
    painter.drawEllipse(QPointF(Side / 2, Side / 2), 4, 4);
}

void drawInformation(QPainter& painter, const Inks& inks)
{
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(Side / 2, Side / 2), 12.5, 12.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inks.accent);
    painter.drawEllipse(QPointF(Side / 2, 10.2), 1.9, 1.9);
    painter.setPen(QPen(inks.accent, 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(Side / 2, 15.2), QPointF(Side / 2, 22));
}

class PaneIconEngine final : public QIconEngine
{
public:
    explicit PaneIconEngine(PaneIcon pane) : _pane(pane) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const Inks inks{palette.color(group, QPalette::WindowText),
                        palette.color(group, QPalette::Highlight)};
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / Side, rect.height() / Side);
        painter->setPen(QPen(inks.line, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        _draw(*painter, inks);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new PaneIconEngine(_pane); }

private:
    void _draw(QPainter& painter, const Inks& inks) const
    {
        switch (_pane) {
        case PaneIcon::HotKey:
            drawKeycap(painter, inks);
            break;
        case PaneIcon::General:
            drawGear(painter, inks);
            break;
        case PaneIcon::About:
            drawInformation(painter, inks);
            break;
        }
    }

    PaneIcon _pane;
};

} // namespace

QIcon paneIcon(PaneIcon pane)
{
    return QIcon(new PaneIconEngine(pane)); // the icon owns it
}

} // namespace tarnwick
