// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

namespace tarnwick {

/// What the core relies on of a clock. `pass` lets the event loop run for so many seconds of it.
class ClockContract
{
public:
    ClockContract(Clock& clock, std::function<void(double seconds)> pass)
        : _clock(clock), _pass(std::move(pass))
    {
    }

    void run()
    {
        _checkNow();
        _checkDelayedCalls();
        _checkCancelledCalls();
        _checkCallsThatChangeTimers();
    }

private:
    static constexpr double Moment = 0.02; ///< seconds, longer than a timer may be late

    void _checkNow()
    {
        for (const double seconds : {Moment, 0.0, -10.0}) {
            const double before = _clock.now();
            _clock.sleepForTimeInterval(seconds);
            EXPECT_GE(_clock.now() - before, seconds > 0 ? seconds : 0) << "slept " << seconds << " s";
        }
    }

    void _start(const QString& name, double seconds, const std::function<void()>& then = {})
    {
        _timers[name] = _clock.performAfterDelay(seconds, [this, name, then] {
            _calls.append(name);
            if (then)
                then();
        });
    }

    /// The calls that have come by now, and none of them is left.
    QStringList _callsAfter(double seconds)
    {
        _pass(seconds);
        _timers.clear();
        return std::exchange(_calls, {});
    }

    void _checkDelayedCalls()
    {
        const QString early = QStringLiteral("early");
        const QString late = QStringLiteral("late");
        _start(late, 2 * Moment);
        _start(early, 0);
        _clock.sleepForTimeInterval(3 * Moment);
        EXPECT_TRUE(_calls.isEmpty()) << "a sleep blocks what the event loop would do";
        EXPECT_EQ(_callsAfter(3 * Moment), (QStringList{early, late})) << "once each, in their order";

        _start(early, -10);
        EXPECT_TRUE(_calls.isEmpty()) << "a time that is over comes from the event loop, too";
        EXPECT_EQ(_callsAfter(Moment), QStringList{early});

        _start(late, 100 * Moment);
        EXPECT_EQ(_callsAfter(Moment), QStringList()) << "it is not yet time";
    }

    void _checkCancelledCalls()
    {
        const QString cancelled = QStringLiteral("cancelled");
        const QString other = QStringLiteral("other");
        _start(cancelled, Moment);
        _start(other, 2 * Moment);
        _timers.erase(cancelled);
        EXPECT_EQ(_callsAfter(4 * Moment), QStringList{other});

        _start(other, Moment / 2, [this, cancelled] { _timers.erase(cancelled); });
        _start(cancelled, Moment);
        _clock.sleepForTimeInterval(2 * Moment); // both fall due
        EXPECT_EQ(_callsAfter(Moment), QStringList{other}) << "even when it was due already";
    }

    void _checkCallsThatChangeTimers()
    {
        const QString first = QStringLiteral("first");
        const QString next = QStringLiteral("next");
        const auto kept = std::make_shared<int>(7);
        int seen = 0;
        _start(first, 0, [this, first, next, kept, &seen] {
            _timers.erase(first);
            seen = *kept; // what it holds lives to its end
            _start(next, 0);
        });
        EXPECT_EQ(_callsAfter(2 * Moment), (QStringList{first, next}));
        EXPECT_EQ(seen, 7);
    }

    Clock& _clock;
    std::function<void(double)> _pass;
    std::map<QString, std::unique_ptr<Clock::Timer>> _timers;
    QStringList _calls;
};

} // namespace tarnwick
