// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <ostream>

namespace tarnwick {

/// Seconds that this thread could have run since its start and was not let; 0 where the kernel does not
/// count.
inline double secondsStarved()
{
    QFile file(QStringLiteral("/proc/thread-self/schedstat"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() / 1e9 : 0;
}

/// How long something took, and for how much of that others had the processor: never more than it took.
class FairTime
{
public:
    /// Of all milliseconds; where it was more, nobody knows how long it would have taken.
    static constexpr double MostStarved = 0.5;

    FairTime(qint64 milliseconds, qint64 starved)
        : _all(milliseconds), _starved(std::clamp<qint64>(starved, 0, milliseconds))
    {
    }

    [[nodiscard]] qint64 starved() const { return _starved; }
    [[nodiscard]] bool machineWasTooBusy() const
    {
        return static_cast<double>(_starved) > MostStarved * static_cast<double>(_all);
    }
    /// Whether it kept to a limit in milliseconds: as it was, or without what others had, which is known
    /// unless the machine was too busy.
    friend bool operator<=(const FairTime& time, qint64 limit)
    {
        return time._all <= limit || (!time.machineWasTooBusy() && time._all - time._starved <= limit);
    }
    friend bool operator<(const FairTime& time, qint64 limit) { return time <= limit - 1; }
    friend std::ostream& operator<<(std::ostream& out, const FairTime& time)
    {
        out << time._all << " ms, " << time._starved << " of them without a processor";
        return time.machineWasTooBusy() ? out << ": the machine was too busy" : out;
    }

private:
    qint64 _all;
    qint64 _starved;
};

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
    [[nodiscard]] FairTime fairElapsed() const
    {
        return {elapsed(), static_cast<qint64>(1000 * (secondsStarved() - _starved))};
    }

private:
    double _starved = 0;
};

} // namespace tarnwick
