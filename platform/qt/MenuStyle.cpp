// SPDX-License-Identifier: MIT
#include "platform/qt/MenuStyle.h"

namespace tarnwick {

int MenuStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const
{
    if (hint == SH_Menu_Scrollable)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace tarnwick
