// SPDX-License-Identifier: MIT
#include "platform/qt/menu/OpenPopUps.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace tarnwick {

void closeAllPopUps()
{
    while (QWidget* popUp = QApplication::activePopupWidget())
        if (!popUp->close())
            popUp->hide();
}

void feedDrag(QEvent::Type type, QPoint place)
{
    QWidget* popUp = QApplication::activePopupWidget();
    if (!popUp)
        return;
    const bool moving = type == QEvent::MouseMove;
    QMouseEvent event(type, popUp->mapFromGlobal(place), place, moving ? Qt::NoButton : Qt::LeftButton,
                      moving ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(popUp, &event);
}

} // namespace tarnwick
