// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuStyle.h"

#include "platform/qt/menu/DisabledText.h"

#include <QStyleOptionMenuItem>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr qsizetype KnownPalettes = 8;

} // namespace

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const
{
    if (hint == SH_Menu_Scrollable)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || !item || item->state.testFlag(State_Enabled)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    QStyleOptionMenuItem legible(*item);
    legible.palette = withLegibleDisabledText(legible.palette);
    QProxyStyle::drawControl(element, &legible, painter, widget);
}

void MenuStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (!option || (element != PE_IndicatorArrowRight && element != PE_IndicatorArrowLeft)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOption arrow(*option);
    arrow.palette = _knownAs(arrow.palette);
    QProxyStyle::drawPrimitive(element, &arrow, painter, widget);
}

const QPalette& MenuStyle::_knownAs(const QPalette& palette) const
{
    const auto known = std::find(_palettes.cbegin(), _palettes.cend(), palette);
    if (known != _palettes.cend())
        return *known;
    if (_palettes.size() == KnownPalettes)
        _palettes.removeFirst();
    _palettes.append(palette);
    return _palettes.constLast();
}

} // namespace tarnwick

#include "moc_MenuStyle.cpp"
