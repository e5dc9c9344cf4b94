// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace tarnwick {

/// A moment after which something that has not come counts as missing. GUI thread only.
class Deadline
{
public:
    /// The program's clock, so that time can be made to pass more slowly; the system's where there is none.
    struct Clock
    {
        using duration = std::chrono::steady_clock::duration;
        using time_point = std::chrono::steady_clock::time_point;

        static time_point now()
        {
            const auto* clock = tarnwick::Clock::sharedOrNull();
            if (!clock)
                return std::chrono::steady_clock::now();
            return time_point(
                std::chrono::duration_cast<duration>(std::chrono::duration<double>(clock->now())));
        }
    };

    static Deadline in(Clock::duration time) { return Deadline(Clock::now() + time); }

    [[nodiscard]] bool passed() const { return Clock::now() >= _moment; }
    /// Never negative.
    [[nodiscard]] Clock::duration remaining() const
    {
        return std::max(_moment - Clock::now(), Clock::duration::zero());
    }
    /// Rounded up, so that waiting this long reaches the deadline.
    [[nodiscard]] int remainingMilliseconds() const
    {
        return static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(remaining()).count());
    }
    [[nodiscard]] std::uint64_t remainingMicroseconds() const
    {
        return static_cast<std::uint64_t>(std::chrono::ceil<std::chrono::microseconds>(remaining()).count());
    }
    /// The earlier of this one and the moment `time` from now.
    [[nodiscard]] Deadline atMostIn(Clock::duration time) const
    {
        return Deadline(std::min(_moment, Clock::now() + time));
    }

private:
    explicit Deadline(Clock::time_point moment) : _moment(moment) {}

    Clock::time_point _moment;
};

} // namespace tarnwick
