// SPDX-License-Identifier: MIT
#include "platform/qt/MenuStyle.h"

#include "platform/qt/DisabledText.h"

#include <QStyleOptionMenuItem>

namespace tarnwick {

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

} // namespace tarnwick
