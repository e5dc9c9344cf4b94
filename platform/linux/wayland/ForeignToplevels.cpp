// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/ForeignToplevels.h"

#include "platform/linux/wayland/CompositorConnection.h"

#include <algorithm>
#include <span>
#include <utility>
#include <wlr-foreign-toplevel-management-unstable-v1-client.h>

namespace tarnwick {

ForeignToplevels::ForeignToplevels(std::shared_ptr<CompositorConnection> connection)
    : _connection(std::move(connection)), _manager(_connection->bind<zwlr_foreign_toplevel_manager_v1>(
                                              zwlr_foreign_toplevel_manager_v1_interface, 1))
{
    if (!_manager)
        return;
    static constexpr zwlr_foreign_toplevel_manager_v1_listener Listener{
        [](void* self, zwlr_foreign_toplevel_manager_v1*, Handle* handle) {
            static_cast<ForeignToplevels*>(self)->_add(handle);
        },
        [](void*, zwlr_foreign_toplevel_manager_v1*) {}};
    zwlr_foreign_toplevel_manager_v1_add_listener(_manager, &Listener, this);
    startFrom(activeNow());
}

ForeignToplevels::~ForeignToplevels()
{
    for (const auto& [handle, known] : _windows)
        zwlr_foreign_toplevel_handle_v1_destroy(handle);
    if (_manager)
        zwlr_foreign_toplevel_manager_v1_destroy(_manager);
}

ForeignToplevels::Window ForeignToplevels::active() const
{
    const auto found = std::ranges::find_if(_windows, [](const auto& entry) { return entry.second.active; });
    return found == _windows.cend() ? 0 : found->second.window;
}

ForeignToplevels::Window ForeignToplevels::activeNow()
{
    if (_manager)
        _connection->roundTrip();
    return active();
}

void ForeignToplevels::activate(Window window)
{
    for (const auto& [handle, known] : _windows)
        if (known.window == window)
            zwlr_foreign_toplevel_handle_v1_activate(handle, _connection->seat());
    _connection->flush();
}

void ForeignToplevels::_add(Handle* handle)
{
    static constexpr auto Here = [](void* self) { return static_cast<ForeignToplevels*>(self); };
    static constexpr zwlr_foreign_toplevel_handle_v1_listener Listener{
        [](void*, Handle*, const char*) {},
        [](void*, Handle*, const char*) {},
        [](void*, Handle*, wl_output*) {},
        [](void*, Handle*, wl_output*) {},
        [](void* self, Handle* of, wl_array* states) { Here(self)->_setState(of, *states); },
        [](void* self, Handle* of) { Here(self)->_finish(of); },
        [](void* self, Handle* of) { Here(self)->_remove(of); },
        [](void*, Handle*, Handle*) {}};
    _windows.emplace(handle, Known{++_last});
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &Listener, this);
}

void ForeignToplevels::_setState(Handle* handle, const wl_array& states)
{
    const std::span words(static_cast<const quint32*>(states.data), states.size / sizeof(quint32));
    _windows.at(handle).willBeActive =
        std::ranges::find(words, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED) != words.end();
}

void ForeignToplevels::_finish(Handle* handle)
{
    Known& known = _windows.at(handle);
    if (std::exchange(known.active, known.willBeActive) != known.active)
        change();
}

void ForeignToplevels::_remove(Handle* handle)
{
    const Known known = _windows.at(handle);
    _windows.erase(handle);
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
    if (known.active)
        change();
    Q_EMIT ended(known.window);
}

} // namespace tarnwick
