// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace tarnwick {

/// Time that passes. Tests shorten it. GUI thread only.
class Clock
{
public:
    static Clock& shared();
    static void setShared(Clock* clock);
    /// Null where nobody has set one.
    static Clock* sharedOrNull();
    virtual ~Clock() = default;

    /// A pending call; destroying it cancels the call.
    class Timer
    {
    public:
        virtual ~Timer() = default;
    };

    /// Blocks the calling thread, events included, for `seconds`.
    virtual void sleepForTimeInterval(double seconds) = 0;

    /// Seconds on a clock that never goes back; only differences mean something.
    [[nodiscard]] virtual double now() const = 0;

    /// Runs `call` once from the event loop after `seconds`, unless the returned timer is destroyed before.
    [[nodiscard]] virtual std::unique_ptr<Timer> performAfterDelay(double seconds,
                                                                   std::function<void()> call) = 0;
};

} // namespace tarnwick
