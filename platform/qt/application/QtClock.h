// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

namespace tarnwick {

/// Real time: the thread's sleep, the steady clock and Qt's timers.
class QtClock : public Clock
{
public:
    void sleepForTimeInterval(double seconds) override;
    [[nodiscard]] double now() const override;
    [[nodiscard]] std::unique_ptr<Timer> performAfterDelay(double seconds,
                                                           std::function<void()> call) override;
};

} // namespace tarnwick
