// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/FixedWindowSizes.h"

#include <QEvent>
#include <QWidget>

namespace tarnwick {

namespace {

/// One for the frame, and one for each answer that can be on its way then, as the window becomes the active
/// one and no more.
constexpr int MostTimes = 4;

} // namespace

FixedWindowSizes::FixedWindowSizes(QObject& application) : QObject(&application)
{
    application.installEventFilter(this);
}

bool FixedWindowSizes::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
        _asked.remove(watched);
    if ((event->type() == QEvent::Show || event->type() == QEvent::Resize) && watched->isWidgetType()) {
        auto& window = static_cast<QWidget&>(*watched);
        if (window.isWindow() && window.isVisible() && window.minimumSize() == window.maximumSize() &&
            window.size() != window.maximumSize())
            _askAgain(window);
    }
    return QObject::eventFilter(watched, event);
}

void FixedWindowSizes::_askAgain(QWidget& window)
{
    Asked& asked = _asked[&window];
    if (asked.size != window.maximumSize())
        asked = {window.maximumSize()};
    if (asked.times++ >= MostTimes)
        return;
    QMetaObject::invokeMethod(
        &window, [&window] { window.resize(window.maximumSize()); }, Qt::QueuedConnection);
}

} // namespace tarnwick
