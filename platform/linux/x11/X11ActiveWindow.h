// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Windows.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tarnwick {

/// Which application window of the X server is in front. A thread with a connection of its own looks at every
/// change at once, so that none is lost while the GUI thread is busy. GUI thread only.
class X11ActiveWindow : public QObject
{
    Q_OBJECT

public:
    X11ActiveWindow();
    ~X11ActiveWindow() override;

    /// Whether changes are watched: false without an X server.
    [[nodiscard]] bool watching() const { return _watcher != nullptr; }

    /// Now; none when no window is.
    [[nodiscard]] X11Window current() const;

    /// Runs `then` from the event loop, after every changed() that the server knows of by now. Not at all
    /// when this goes before.
    void afterChangesSoFar(std::function<void()> then);

Q_SIGNALS:
    /// Once for each change, in order, from the event loop. The window may not be in front any more.
    void changed(const tarnwick::X11Window& front);

private:
    class Watcher;

    std::unique_ptr<Watcher> _watcher;
};

} // namespace tarnwick
