// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace tarnwick {

/// Whether a pop-up of ours is open, for the adapters that must wait for its end or can ask for it. GUI
/// thread only.
class MenuTracking : public QObject
{
    Q_OBJECT

public:
    static MenuTracking& shared();

    [[nodiscard]] bool active() const { return _active; }

    /// For the presenter: around the whole call that pops a menu up.
    void begin();
    void end();

    /// The same for as long as it is there.
    class Span
    {
    public:
        Span() { shared().begin(); }
        ~Span() { shared().end(); }
        Span(const Span&) = delete;
        Span& operator=(const Span&) = delete;
    };

    /// Asks the presenter to close the menu without choosing; does nothing while none is open.
    void cancel();

Q_SIGNALS:
    void cancelRequested();
    /// The call that popped the menu up is about to return.
    void ended();

private:
    bool _active = false;
};

} // namespace tarnwick
