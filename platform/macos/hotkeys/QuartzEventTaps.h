// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"
#include "mouse/EventTaps.h"

#include <memory>
#include <vector>

namespace tarnwick {

/// Quartz event taps. Lives as long as the process: the system keeps the run-loop sources of released taps,
/// and they keep pointing here.
class QuartzEventTaps final : public EventTaps
{
public:
    QuartzEventTaps();
    ~QuartzEventTaps() override;
    QuartzEventTaps(const QuartzEventTaps&) = delete;
    QuartzEventTaps& operator=(const QuartzEventTaps&) = delete;

    [[nodiscard]] EventTapRef create(Location location, Placement placement, Options options,
                                     quint64 eventsOfInterest, EventTapCallback callback) override;
    void addSourceToMainRunLoop(EventTapRef tap) override;
    void enable(EventTapRef tap, bool enable) override;
    void release(EventTapRef tap) override;

    /// Whether some tap's callback is running: the system holds the event back until it returns.
    [[nodiscard]] static bool isInsideCallback();

private:
    class Tap;
    [[nodiscard]] Tap* _tap(EventTapRef tap) const;
    void _waitForAccess();
    void _openWaiting();

    std::vector<std::unique_ptr<Tap>> _taps; ///< tap n at index n − 1, the released ones too
    std::unique_ptr<Clock::Timer> _nextTry;  ///< while some tap waits
};

} // namespace tarnwick
