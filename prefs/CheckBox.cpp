// SPDX-License-Identifier: MIT
#include "prefs/CheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace tarnwick {

namespace {

constexpr float OutlineInk = 0.6F; // of the text's colour

} // namespace

void CheckBox::paintEvent(QPaintEvent* event)
{
    QCheckBox::paintEvent(event);
    QColor outline = palette().color(QPalette::WindowText);
    if (outline.lightness() <= palette().color(QPalette::Window).lightness())
        return;
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRect box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    outline.setAlphaF(OutlineInk);
    QPainter painter(this);
    painter.setPen(outline);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

} // namespace tarnwick

#include "moc_CheckBox.cpp"
