// SPDX-License-Identifier: MIT
#include "shortcut/SRSharedImageProvider.h"

#include "shortcut/DropShadow.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

namespace tarnwick {

using namespace Qt::StringLiterals;

std::shared_ptr<const SharedImage> SRSharedImageProvider::supportingImageWithName(const QString& name)
{
    struct Methods
    {
        QSizeF (*size)();
        SharedImage::Draw draw;
    };
    static const QHash<QString, Methods> methods{
        {u"SRRemoveShortcut"_s, {_sizeSRRemoveShortcut, _drawSRRemoveShortcut}},
        {u"SRRemoveShortcutRollover"_s, {_sizeSRRemoveShortcutRollover, _drawSRRemoveShortcutRollover}},
        {u"SRRemoveShortcutPressed"_s, {_sizeSRRemoveShortcutPressed, _drawSRRemoveShortcutPressed}},
        {u"SRSnapback"_s, {_sizeSRSnapback, _drawSRSnapback}},
    };
    static QHash<QString, std::shared_ptr<const SharedImage>> cache;

    if (auto cached = cache.value(name))
        return cached;
    const auto found = methods.constFind(name);
    if (found == methods.cend())
        return nullptr;
    auto image = std::make_shared<const SharedImage>(found->size(), found->draw);
    cache.insert(name, image);
    return image;
}

QSizeF SRSharedImageProvider::_sizeSRRemoveShortcut()
{
    return {14, 14};
}

QSizeF SRSharedImageProvider::_sizeSRRemoveShortcutRollover()
{
    return _sizeSRRemoveShortcut();
}

QSizeF SRSharedImageProvider::_sizeSRRemoveShortcutPressed()
{
    return _sizeSRRemoveShortcut();
}

QSizeF SRSharedImageProvider::_sizeSRSnapback()
{
    return {14, 14};
}

void SRSharedImageProvider::_drawSRRemoveShortcut(QPainter& painter, const QSizeF& size)
{
    _drawARemoveShortcutBoxUsingRepOpacity(painter, size, 0.75);
}

void SRSharedImageProvider::_drawSRRemoveShortcutRollover(QPainter& painter, const QSizeF& size)
{
    _drawARemoveShortcutBoxUsingRepOpacity(painter, size, 0.65);
}

void SRSharedImageProvider::_drawSRRemoveShortcutPressed(QPainter& painter, const QSizeF& size)
{
    _drawARemoveShortcutBoxUsingRepOpacity(painter, size, 0.55);
}

void SRSharedImageProvider::_drawARemoveShortcutBoxUsingRepOpacity(QPainter& painter, const QSizeF& size,
                                                                   double opacity)
{
    const double u = size.width() / 14;
    const double v = size.height() / 14;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(1 - opacity)));
    painter.drawEllipse(QRectF({0, 0}, size));
    painter.setPen(QPen(Qt::white, 1.2 * u, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(4 * u, 4 * v), QPointF(10 * u, 10 * v));
    painter.drawLine(QPointF(10 * u, 4 * v), QPointF(4 * u, 10 * v));
}

void SRSharedImageProvider::_drawSRSnapback(QPainter& painter, const QSizeF& size)
{
    const auto at = [&size](double x, double y) { return QPointF(x * size.width(), y * size.height()); };
    QPainterPath arrow;
    arrow.moveTo(at(0.04896850, 0.61815131));
    arrow.lineTo(at(0.40857500, 0.94693178));
    arrow.lineTo(at(0.40857500, 0.72261459));
    arrow.cubicTo(at(0.40857500, 0.72261459), at(0.83711427, 0.74918407), at(0.85082471, 0.48362371));
    arrow.cubicTo(at(0.86778343, 0.15450710), at(0.55071950, 0.05306820), at(0.55071950, 0.05306820));
    arrow.cubicTo(at(0.55071950, 0.05306820), at(0.74586850, 0.19131459), at(0.74217212, 0.33919421));
    arrow.cubicTo(at(0.73834121, 0.49303281), at(0.40857500, 0.51541299), at(0.40857500, 0.51541299));
    arrow.lineTo(at(0.40857500, 0.26540000));
    arrow.closeSubpath();
    arrow = (QTransform::fromScale(0.9, 1.0) * QTransform::fromTranslate(0.5, -0.5)).map(arrow);
    fillWithDropShadow(painter, arrow, Qt::white,
                       {QColor::fromRgbF(0, 0, 0, 0.45F), /*blurRadius=*/1.0, /*offset=*/{0.0, -1.0}});
}

} // namespace tarnwick
