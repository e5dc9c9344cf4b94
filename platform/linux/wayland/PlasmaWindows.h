// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/wayland/Toplevels.h"

#include <map>
#include <memory>

struct org_kde_plasma_window;
struct org_kde_plasma_window_management;

namespace tarnwick {

/// By the word of KWin, which tells of windows whoever says in the desktop entry of the program that it wants
/// to know. Layers are no windows to it.
class PlasmaWindows final : public Toplevels
{
public:
    /// Null where the compositor does not tell us, and in a program that was built without.
    [[nodiscard]] static std::shared_ptr<Toplevels>
    open(const std::shared_ptr<CompositorConnection>& connection);
    ~PlasmaWindows() override;

    [[nodiscard]] Window active() const override;
    [[nodiscard]] Window activeNow() override;
    [[nodiscard]] FrontHint about(Window window) const override;
    void activate(Window window) override;

private:
    using Handle = org_kde_plasma_window;
    using Manager = org_kde_plasma_window_management;
    struct Known
    {
        Window window;
        bool active = false;
        bool complete = false; ///< all that there is to tell of it has been told once
        FrontHint hint = {};
    };

    PlasmaWindows(std::shared_ptr<CompositorConnection> connection, Manager* manager);
    void _add(const char* uuid);
    void _remove(Handle* handle);
    void _setActive(Handle* handle, bool active);
    void _setMenuBar(Handle* handle, const ExportedMenuBar& menuBar);
    [[nodiscard]] bool _waits() const;

    std::shared_ptr<CompositorConnection> _connection;
    Manager* _manager;
    std::map<Handle*, Known> _windows;
    Window _last = 0; ///< that has been given to a window
};

} // namespace tarnwick
