// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

#include <memory>
#include <utility>

namespace tarnwick {

/// Another clock whose pauses and delays are `factor` as long, for a long time in a short one, and that tells
/// how long each pause was.
class WatchedClock final : public Clock
{
public:
    using Paused = std::function<void(double seconds)>;

    WatchedClock(std::unique_ptr<Clock> clock, double factor, Paused paused)
        : _clock(std::move(clock)), _factor(factor), _paused(std::move(paused))
    {
    }

    void sleepForTimeInterval(double seconds) override
    {
        const double begin = _clock->now();
        _clock->sleepForTimeInterval(seconds * _factor);
        _paused(_clock->now() - begin);
    }
    [[nodiscard]] double now() const override { return _clock->now(); }
    [[nodiscard]] std::unique_ptr<Timer> performAfterDelay(double seconds,
                                                           std::function<void()> call) override
    {
        return _clock->performAfterDelay(seconds * _factor, std::move(call));
    }

private:
    std::unique_ptr<Clock> _clock;
    double _factor;
    Paused _paused;
};

} // namespace tarnwick
