// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/Toplevels.h"

#include "platform/linux/wayland/ForeignToplevels.h"
#include "platform/linux/wayland/PlasmaWindows.h"

namespace tarnwick {

Toplevels::Toplevels()
{
    _tell.setSingleShot(true);
    _tell.setInterval(0);
    connect(&_tell, &QTimer::timeout, this, [this] {
        const Window before = _told;
        const ExportedMenuBar menuBarBefore = _toldMenuBar;
        startFrom(active());
        if (before != _told)
            Q_EMIT activeChanged();
        else if (menuBarBefore != _toldMenuBar)
            Q_EMIT menuBarChanged();
    });
}

void Toplevels::startFrom(Window active)
{
    _told = active;
    _toldMenuBar = about(active).menuBar;
}

std::shared_ptr<Toplevels> Toplevels::open(const std::shared_ptr<CompositorConnection>& connection)
{
    if (auto windows = PlasmaWindows::open(connection))
        return windows;
    return std::make_shared<ForeignToplevels>(connection);
}

} // namespace tarnwick

#include "moc_Toplevels.cpp"
