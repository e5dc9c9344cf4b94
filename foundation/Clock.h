// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <functional>
#include <memory>

namespace tarnwick {

/// Time that passes. Tests shorten it. GUI thread only.
class Clock : public SharedPort<Clock>
{
public:
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
