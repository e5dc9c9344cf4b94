// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontHint.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace tarnwick {

class CompositorConnection;

/// Which window of all applications is the active one, by the word of the compositor. GUI thread only.
class Toplevels : public QObject
{
    Q_OBJECT

public:
    /// Stands for a window; 0 for none. Never used twice.
    using Window = quint64;

    /// By whatever the compositor tells it; there is never an active window where it tells nothing.
    [[nodiscard]] static std::shared_ptr<Toplevels>
    open(const std::shared_ptr<CompositorConnection>& connection);

    /// As far as has been told: 0 while there is no active window.
    [[nodiscard]] virtual Window active() const = 0;
    /// The same, of all that has happened by now: waits for the compositor.
    [[nodiscard]] virtual Window activeNow() = 0;
    /// Whose the window is, its title and its exported menu bar, where the compositor tells that.
    [[nodiscard]] virtual FrontHint about(Window window) const = 0;
    /// Asks for the window to become the active one; does nothing when it has gone.
    virtual void activate(Window window) = 0;

Q_SIGNALS:
    /// From the event loop, once for what happened together.
    void activeChanged();
    /// The same window is active, and its menu bar is exported elsewhere, or not any more.
    void menuBarChanged();
    /// That window will not be told of any more. From inside whatever waits for the compositor.
    void ended(quint64 window);

protected:
    Toplevels();
    /// What is active by now is no change.
    void startFrom(Window active);
    /// Another window may be the active one, or its menu bar another one.
    void change() { _tell.start(); }

private:
    Window _told = 0;             ///< that was active at the last activeChanged()
    ExportedMenuBar _toldMenuBar; ///< of that window
    QTimer _tell;
};

} // namespace tarnwick
