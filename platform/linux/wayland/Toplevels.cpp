// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/Toplevels.h"

#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/PlasmaWindows.h"

#include <utility>

namespace tarnwick {

Toplevels::Toplevels()
{
    _tell.setSingleShot(true);
    _tell.setInterval(0);
    connect(&_tell, &QTimer::timeout, this, [this] {
        if (std::exchange(_told, active()) != _told)
            Q_EMIT activeChanged();
    });
}

std::shared_ptr<Toplevels> Toplevels::open(const std::shared_ptr<CompositorConnection>& connection)
{
    if (auto windows = PlasmaWindows::open(connection))
        return windows;
    return std::make_shared<ForeignToplevels>(connection);
}

} // namespace tarnwick

#include "moc_Toplevels.cpp"
