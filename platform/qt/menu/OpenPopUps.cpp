// SPDX-License-Identifier: MIT
#include "platform/qt/menu/OpenPopUps.h"

#include <QApplication>
#include <QWidget>

namespace tarnwick {

void closeAllPopUps()
{
    while (QWidget* popUp = QApplication::activePopupWidget())
        if (!popUp->close())
            popUp->hide();
}

} // namespace tarnwick
