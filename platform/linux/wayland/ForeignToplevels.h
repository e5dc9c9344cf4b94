// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/wayland/Toplevels.h"

#include <map>
#include <memory>
#include <wayland-util.h>

struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace tarnwick {

/// By the word of a compositor of the wlroots kind, which does not tell whose a window is; of any other, none
/// is ever active. One for a connection, as long as that: what the compositor tells one that is gone breaks
/// it.
class ForeignToplevels final : public Toplevels
{
public:
    explicit ForeignToplevels(std::shared_ptr<CompositorConnection> connection);
    ~ForeignToplevels() override;

    [[nodiscard]] Window active() const override;
    [[nodiscard]] Window activeNow() override;
    [[nodiscard]] FrontHint about(Window /*window*/) const override { return {}; }
    void activate(Window window) override;

private:
    using Handle = zwlr_foreign_toplevel_handle_v1;
    struct Known
    {
        Window window;
        bool active = false;
        bool willBeActive = false; ///< once the compositor has told all
    };

    void _add(Handle* handle);
    void _setState(Handle* handle, const wl_array& states);
    void _finish(Handle* handle);
    void _remove(Handle* handle);

    std::shared_ptr<CompositorConnection> _connection;
    zwlr_foreign_toplevel_manager_v1* _manager; ///< null where nothing is told
    std::map<Handle*, Known> _windows;
    Window _last = 0; ///< that has been given to a window
};

} // namespace tarnwick
