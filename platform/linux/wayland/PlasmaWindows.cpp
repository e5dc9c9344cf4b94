// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/PlasmaWindows.h"

#include "platform/linux/wayland/CompositorConnection.h"

#include <QString>

#include <algorithm>
#include <utility>

#if __has_include(<plasma-window-management-client.h>)

#include <plasma-window-management-client.h>

namespace tarnwick {

namespace {

/// Windows have a name that is never used twice since 13; since 17 their order, which nobody wants to know,
/// is not told with each change.
constexpr quint32 OldestVersion = 13;
constexpr quint32 Version = 17;

} // namespace

std::shared_ptr<Toplevels> PlasmaWindows::open(const std::shared_ptr<CompositorConnection>& connection)
{
    auto* manager = connection->bind<Manager>(org_kde_plasma_window_management_interface, Version);
    if (manager && wl_proxy_get_version(reinterpret_cast<wl_proxy*>(manager)) < OldestVersion)
        org_kde_plasma_window_management_destroy(std::exchange(manager, nullptr));
    if (!manager)
        return nullptr;
    return std::shared_ptr<Toplevels>(new PlasmaWindows(connection, manager));
}

PlasmaWindows::PlasmaWindows(std::shared_ptr<CompositorConnection> connection, Manager* manager)
    : _connection(std::move(connection)), _manager(manager)
{
    static constexpr org_kde_plasma_window_management_listener Listener{
        .show_desktop_changed = [](void*, Manager*, quint32) {},
        .window = [](void*, Manager*, quint32) {},
        .stacking_order_changed = [](void*, Manager*, wl_array*) {},
        .stacking_order_uuid_changed = [](void*, Manager*, const char*) {},
        .window_with_uuid = [](void* self, Manager*, quint32,
                               const char* uuid) { static_cast<PlasmaWindows*>(self)->_add(uuid); },
        .stacking_order_changed_2 = [](void*, Manager*) {},
    };
    org_kde_plasma_window_management_add_listener(_manager, &Listener, this);
    startFrom(activeNow());
}

PlasmaWindows::~PlasmaWindows()
{
    for (const auto& [handle, known] : _windows)
        org_kde_plasma_window_destroy(handle);
    org_kde_plasma_window_management_destroy(_manager);
}

Toplevels::Window PlasmaWindows::active() const
{
    const auto found = std::ranges::find_if(_windows, [](const auto& entry) { return entry.second.active; });
    return found == _windows.cend() ? 0 : found->second.window;
}

Toplevels::Window PlasmaWindows::activeNow()
{
    _connection->roundTrip();
    if (_waits()) // for what the windows that it has told of are
        _connection->roundTrip();
    return active();
}

bool PlasmaWindows::_waits() const
{
    return std::ranges::any_of(_windows, [](const auto& entry) { return !entry.second.complete; });
}

FrontHint PlasmaWindows::about(Window window) const
{
    const auto found =
        std::ranges::find_if(_windows, [window](const auto& entry) { return entry.second.window == window; });
    return found == _windows.cend() ? FrontHint() : found->second.hint;
}

void PlasmaWindows::activate(Window window)
{
    for (const auto& [handle, known] : _windows)
        if (known.window == window)
            org_kde_plasma_window_set_state(handle, ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE,
                                            ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE);
    _connection->flush();
}

void PlasmaWindows::_add(const char* uuid)
{
    static constexpr auto Here = [](void* self) { return static_cast<PlasmaWindows*>(self); };
    static constexpr auto HintOf = [](void* self, Handle* handle) -> FrontHint& {
        return Here(self)->_windows.at(handle).hint;
    };
    static constexpr org_kde_plasma_window_listener Listener{
        .title_changed = [](void* self, Handle* handle,
                            const char* title) { HintOf(self, handle).title = QString::fromUtf8(title); },
        .app_id_changed = [](void*, Handle*, const char*) {},
        .state_changed =
            [](void* self, Handle* handle, quint32 states) {
                Here(self)->_setActive(handle, states & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE);
            },
        .virtual_desktop_changed = [](void*, Handle*, qint32) {},
        .themed_icon_name_changed = [](void*, Handle*, const char*) {},
        .unmapped = [](void* self, Handle* handle) { Here(self)->_remove(handle); },
        .initial_state = [](void* self, Handle* handle) { Here(self)->_windows.at(handle).complete = true; },
        .parent_window = [](void*, Handle*, Handle*) {},
        .geometry = [](void*, Handle*, qint32, qint32, quint32, quint32) {},
        .icon_changed = [](void*, Handle*) {},
        .pid_changed = [](void* self, Handle* handle,
                          quint32 process) { HintOf(self, handle).processIdentifier = process; },
        .virtual_desktop_entered = [](void*, Handle*, const char*) {},
        .virtual_desktop_left = [](void*, Handle*, const char*) {},
        .application_menu =
            [](void* self, Handle* handle, const char* service, const char* path) {
                Here(self)->_setMenuBar(handle, {service, path});
            },
        .activity_entered = [](void*, Handle*, const char*) {},
        .activity_left = [](void*, Handle*, const char*) {},
        .resource_name_changed = [](void*, Handle*, const char*) {},
        .client_geometry = [](void*, Handle*, qint32, qint32, quint32, quint32) {},
    };
    Handle* handle = org_kde_plasma_window_management_get_window_by_uuid(_manager, uuid);
    _windows.emplace(handle, Known{++_last});
    org_kde_plasma_window_add_listener(handle, &Listener, this);
    _connection->flush();
}

void PlasmaWindows::_remove(Handle* handle)
{
    const Known known = _windows.at(handle);
    _windows.erase(handle);
    org_kde_plasma_window_destroy(handle);
    if (known.active)
        change();
    Q_EMIT ended(known.window);
}

void PlasmaWindows::_setActive(Handle* handle, bool active)
{
    if (std::exchange(_windows.at(handle).active, active) != active)
        change();
}

void PlasmaWindows::_setMenuBar(Handle* handle, const ExportedMenuBar& menuBar)
{
    Known& known = _windows.at(handle);
    known.hint.menuBar = menuBar;
    if (known.active)
        change();
}

} // namespace tarnwick

#else

std::shared_ptr<tarnwick::Toplevels>
tarnwick::PlasmaWindows::open(const std::shared_ptr<CompositorConnection>& /*connection*/)
{
    return nullptr;
}

#endif
