// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontHint.h"
#include "platform/linux/front/FrontWindow.h"

#include <QObject>

#include <functional>

namespace tarnwick {

/// Tells which application is in front, by the window of it that is. Each display server has its own way to
/// know. GUI thread only.
class FrontApplication : public QObject
{
    Q_OBJECT

public:
    /// Somebody wants to hear of switches from now on. Tells all changes so far first. False when changes are
    /// never told.
    [[nodiscard]] virtual bool watch() = 0;

    /// The window in front now; none when no window is.
    [[nodiscard]] virtual FrontWindow current() const = 0;

    /// Looks for a change that nobody has told of, and gives what is in front then. Nothing where every
    /// change is told.
    [[nodiscard]] virtual std::optional<FrontWindow> lookAgain() = 0;

    /// The same with the word of one who sees more; it counts only where the display server says nothing.
    [[nodiscard]] virtual std::optional<FrontWindow> lookAgainFor(const FrontHint& /*hint*/)
    {
        return lookAgain();
    }

    /// Runs `then` from the event loop, after changed() for all that the display server knows of by now. Not
    /// at all when this goes before.
    virtual void afterChangesSoFar(std::function<void()> then) = 0;

Q_SIGNALS:
    /// Once for each change, in order, from the event loop. The window may not be in front any more.
    void changed(const tarnwick::FrontWindow& front);
};

} // namespace tarnwick
