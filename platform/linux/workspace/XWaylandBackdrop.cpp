// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/XWaylandBackdrop.h"

#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

constexpr auto Patience = 200ms;

} // namespace

// Compositors give no focus to a tool, nor to a window that says it accepts none.
XWaylandBackdrop::XWaylandBackdrop()
    : QWidget(nullptr,
              Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setGeometry(QGuiApplication::primaryScreen()->virtualGeometry());
    show();
}

void XWaylandBackdrop::waitForPointer()
{
    QEventLoop loop;
    connect(this, &XWaylandBackdrop::entered, &loop, &QEventLoop::quit);
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    loop.exec();
}

bool XWaylandBackdrop::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        Q_EMIT entered();
    return QWidget::event(event);
}

} // namespace tarnwick

#include "moc_XWaylandBackdrop.cpp"
