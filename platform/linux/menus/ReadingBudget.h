// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/Deadline.h"

#include <memory>
#include <optional>

class QTimer;

namespace tarnwick {

/// How long one reading from other applications may wait: half a second for all that belongs to it. A reading
/// begins where somebody says so, as each update of the mirror does, and otherwise with each event: its
/// handler has one. Time between the reads does not count. A menu of ours has keyboard and pointer while it
/// is open: when the half second was not enough then, the keys that were pressed meanwhile are handled first,
/// with no time left for any reading. GUI thread only.
class ReadingBudget
{
public:
    static constexpr std::chrono::milliseconds PerReading{500};

    ReadingBudget();
    ~ReadingBudget();
    ReadingBudget(const ReadingBudget&) = delete;
    ReadingBudget& operator=(const ReadingBudget&) = delete;

    /// A reading begins, within a handler that may have had one already. Not while something is read.
    void begin() { _renew(); }

    /// Counts the time until its end as reading. One within another has the same deadline.
    class Reading
    {
    public:
        explicit Reading(ReadingBudget& budget);
        ~Reading();
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

        [[nodiscard]] Deadline deadline() const { return _deadline; }

    private:
        ReadingBudget& _budget;
        bool _outermost;
        Deadline::Clock::time_point _start;
        Deadline _deadline;
    };

private:
    void _renewAfterWhatWasPressed();
    void _renew();

    Deadline::Clock::duration _left = PerReading;
    std::optional<Deadline> _current; ///< of the outermost reading
    bool _renewalQueued = false;
    bool _usedUp = false; ///< while a menu is open
    std::unique_ptr<QTimer> _afterWhatWasPressed;
};

} // namespace tarnwick
