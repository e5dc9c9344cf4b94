// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <map>
#include <wayland-util.h>

struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace tarnwick {

class CompositorConnection;

/// Which window of all applications is the active one, by the word of a compositor that tells it. It does not
/// tell whose a window is. GUI thread only.
class ForeignToplevels final : public QObject
{
    Q_OBJECT

public:
    /// Stands for a window; 0 for none. Never used twice.
    using Window = quint64;

    /// `connection` must outlive this.
    explicit ForeignToplevels(CompositorConnection& connection);
    ~ForeignToplevels() override;

    /// Whether the compositor tells of windows.
    [[nodiscard]] bool offered() const { return _manager != nullptr; }

    /// As far as has been told: 0 while there is no active window.
    [[nodiscard]] Window active() const;
    /// The same, of all that has happened by now: a round trip.
    [[nodiscard]] Window activeNow();
    /// Asks for the window to become the active one; does nothing when it has gone.
    void activate(Window window);

Q_SIGNALS:
    /// From the event loop, once for what happened together.
    void activeChanged();

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

    CompositorConnection& _connection;
    zwlr_foreign_toplevel_manager_v1* _manager = nullptr;
    std::map<Handle*, Known> _windows;
    Window _last = 0; ///< that has been given to a window
    Window _told = 0; ///< that was active at the last activeChanged()
    QTimer _tell;
};

} // namespace tarnwick
