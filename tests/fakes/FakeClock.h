// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"
#include "tests/fakes/Journal.h"

#include <QList>

#include <algorithm>
#include <utility>

namespace tarnwick {

/// Time that passes only when somebody sleeps or the test advances it.
class FakeClock final : public Clock
{
public:
    QList<double> slept;        ///< look: every sleep, in seconds
    Journal* journal = nullptr; ///< "sleep <seconds>"

    /// Lever: lets time pass; timers that fall due run in the order of their times.
    void advance(double seconds)
    {
        const double end = _now + seconds;
        while (const auto next = _nextDueBy(end)) {
            _now = std::max(_now, next->due);
            _pending.removeOne(next);
            if (!next->cancelled)
                next->call();
        }
        _now = end;
    }

    /// Look: calls that are still to run.
    [[nodiscard]] int pending() const
    {
        return static_cast<int>(std::count_if(_pending.cbegin(), _pending.cend(),
                                              [](const auto& each) { return !each->cancelled; }));
    }

    /// Timers that fall due meanwhile wait for advance(), since a sleep blocks events.
    void sleepForTimeInterval(double seconds) override
    {
        slept.append(seconds);
        note(journal, QStringLiteral("sleep %1").arg(seconds));
        _now += std::max(0.0, seconds);
    }

    [[nodiscard]] double now() const override { return _now; }

    [[nodiscard]] std::unique_ptr<Timer> performAfterDelay(double seconds,
                                                           std::function<void()> call) override
    {
        const auto entry = std::make_shared<Call>(Call{_now + seconds, std::move(call)});
        _pending.append(entry);
        return std::make_unique<Token>(entry);
    }

private:
    struct Call
    {
        double due = 0;
        std::function<void()> call;
        bool cancelled = false;
    };

    struct Token final : Timer
    {
        explicit Token(std::shared_ptr<Call> call) : _call(std::move(call)) {}
        ~Token() override { _call->cancelled = true; }
        std::shared_ptr<Call> _call;
    };

    std::shared_ptr<Call> _nextDueBy(double end) const
    {
        std::shared_ptr<Call> next;
        for (const auto& each : _pending) {
            if (each->due <= end && (!next || each->due < next->due))
                next = each;
        }
        return next;
    }

    double _now = 0;
    QList<std::shared_ptr<Call>> _pending;
};

} // namespace tarnwick
