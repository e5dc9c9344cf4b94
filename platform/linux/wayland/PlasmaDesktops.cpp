// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/PlasmaDesktops.h"

#include "platform/linux/wayland/CompositorConnection.h"

#include <utility>

#if __has_include(<org-kde-plasma-virtual-desktop-client.h>)

#include <org-kde-plasma-virtual-desktop-client.h>

namespace tarnwick {

PlasmaDesktops::PlasmaDesktops(std::shared_ptr<CompositorConnection> connection)
    : _connection(std::move(connection)),
      _manager(_connection->bind<Manager>(org_kde_plasma_virtual_desktop_management_interface, 1))
{
    static constexpr org_kde_plasma_virtual_desktop_management_listener Listener{
        .desktop_created = [](void* self, Manager*, const char* identifier,
                              quint32) { static_cast<PlasmaDesktops*>(self)->_add(identifier); },
        .desktop_removed = [](void*, Manager*, const char*) {},
        .done = [](void*, Manager*) {},
        .rows = [](void*, Manager*, quint32) {},
    };
    if (!_manager)
        return;
    org_kde_plasma_virtual_desktop_management_add_listener(_manager, &Listener, this);
    _connection->flush();
}

PlasmaDesktops::~PlasmaDesktops()
{
    for (Desktop* desktop : _desktops)
        org_kde_plasma_virtual_desktop_destroy(desktop);
    if (_manager)
        org_kde_plasma_virtual_desktop_management_destroy(_manager);
}

void PlasmaDesktops::_add(const char* identifier)
{
    static constexpr org_kde_plasma_virtual_desktop_listener Listener{
        .desktop_id = [](void*, Desktop*, const char*) {},
        .name = [](void*, Desktop*, const char*) {},
        .activated = [](void* self, Desktop*) { static_cast<PlasmaDesktops*>(self)->_activated(); },
        .deactivated = [](void*, Desktop*) {},
        .done = [](void*, Desktop*) {},
        .removed = [](void* self, Desktop* desktop) { static_cast<PlasmaDesktops*>(self)->_remove(desktop); },
    };
    Desktop* desktop = org_kde_plasma_virtual_desktop_management_get_virtual_desktop(_manager, identifier);
    _desktops.push_back(desktop);
    org_kde_plasma_virtual_desktop_add_listener(desktop, &Listener, this);
    _connection->flush();
}

void PlasmaDesktops::_activated()
{
    // That of the start is told as well.
    if (std::exchange(_known, true))
        Q_EMIT changed();
}

void PlasmaDesktops::_remove(Desktop* desktop)
{
    std::erase(_desktops, desktop);
    org_kde_plasma_virtual_desktop_destroy(desktop);
}

} // namespace tarnwick

#else

namespace tarnwick {

PlasmaDesktops::PlasmaDesktops(std::shared_ptr<CompositorConnection> connection)
    : _connection(std::move(connection))
{
}

PlasmaDesktops::~PlasmaDesktops() = default;

} // namespace tarnwick

#endif

#include "moc_PlasmaDesktops.cpp"
