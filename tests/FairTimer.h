// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QFile>

namespace tarnwick {

/// Seconds that this thread could have run since its start and was not let; 0 where the kernel does not
/// count.
inline double secondsStarved()
{
    QFile file(QStringLiteral("/proc/thread-self/schedstat"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() / 1e9 : 0;
}

/// For limits of how long something holds this thread up: when others had the processor, that is not its
/// fault.
class FairTimer : public QElapsedTimer
{
public:
    void start()
    {
        _starved = secondsStarved();
        QElapsedTimer::start();
    }
    /// Milliseconds since `start()` without those.
    [[nodiscard]] qint64 fairElapsed() const
    {
        return elapsed() - static_cast<qint64>(1000 * (secondsStarved() - _starved));
    }

private:
    double _starved = 0;
};

} // namespace tarnwick
