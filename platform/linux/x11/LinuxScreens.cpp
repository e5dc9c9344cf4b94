// SPDX-License-Identifier: MIT
#include "platform/linux/x11/LinuxScreens.h"

#include "platform/linux/x11/ScreenSpaces.h"
#include "platform/linux/x11/X11Connection.h"

#include <algorithm>

namespace tarnwick {

namespace {

bool isOnAny(const QList<Monitor>& monitors, QPoint pixel)
{
    return std::ranges::any_of(monitors,
                               [pixel](const Monitor& monitor) { return monitor.pixels.contains(pixel); });
}

} // namespace

QList<QRectF> LinuxScreens::frames() const
{
    const QList<Monitor> monitors = currentMonitors();
    QList<QRectF> frames;
    for (const Monitor& monitor : monitors)
        frames.append(windowSystemFrame(monitor.pixels, monitors));
    return frames;
}

QRectF LinuxScreens::mainDisplayBounds() const
{
    const QList<Monitor> monitors = currentMonitors();
    return monitors.isEmpty() ? QRectF() : QRectF(QPointF(0, 0), QSizeF(monitors.first().pixels.size()));
}

QPointF LinuxScreens::mouseLocation() const
{
    if (_pointer)
        if (const QList<Monitor> monitors = currentMonitors(); isOnAny(monitors, *_pointer))
            return windowSystemPoint(*_pointer, monitors);
    auto& connection = X11Connection::shared();
    if (!connection)
        return {};
    const XcbOwned<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        connection.get(), xcb_query_pointer(connection.get(), connection.root()), nullptr));
    if (!pointer)
        return {};
    return windowSystemPoint(QPoint(pointer->root_x, pointer->root_y), currentMonitors());
}

} // namespace tarnwick
