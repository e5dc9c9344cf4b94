// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtClock.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace tarnwick {

namespace {

class QtTimer final : public Clock::Timer
{
public:
    QtTimer(double seconds, std::function<void()> call)
    {
        _timer.setSingleShot(true);
        _timer.setTimerType(Qt::PreciseTimer);
        // The call may destroy this timer, and with it the function that is running: it runs from a copy.
        _timer.callOnTimeout([call = std::move(call)] {
            const auto running = call;
            running();
        });
        _timer.start(std::chrono::milliseconds(std::max<qint64>(0, qRound64(seconds * 1000))));
    }

private:
    QTimer _timer;
};

} // namespace

void QtClock::sleepForTimeInterval(double seconds)
{
    std::this_thread::sleep_for(std::chrono::duration<double>(std::max(0.0, seconds)));
}

double QtClock::now() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::unique_ptr<Clock::Timer> QtClock::performAfterDelay(double seconds, std::function<void()> call)
{
    return std::make_unique<QtTimer>(seconds, std::move(call));
}

} // namespace tarnwick
