// SPDX-License-Identifier: MIT
#include "platform/linux/taps/OwnWindowTaps.h"

#include <QGuiApplication>
#include <QMouseEvent>

namespace tarnwick {

OwnWindowTaps::OwnWindowTaps()
{
    qGuiApp->installEventFilter(this);
}

bool OwnWindowTaps::eventFilter(QObject* watched, QEvent* event)
{
    // The window has each press once, before the widgets in it.
    if (event->type() != QEvent::MouseButtonPress || !watched->isWindowType())
        return false;
    const Qt::MouseButton button = static_cast<const QMouseEvent*>(event)->button();
    if (button != Qt::LeftButton && button != Qt::RightButton)
        pressed([this](std::function<void()> then) {
            QMetaObject::invokeMethod(this, std::move(then), Qt::QueuedConnection);
        });
    return false;
}

} // namespace tarnwick

#include "moc_OwnWindowTaps.cpp"
