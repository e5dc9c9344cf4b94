// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <atomic>
#include <thread>

namespace tarnwick {

/// Writes down when the main loop was away: a line `begin end paused starved pauses` for each time when an
/// event waited for longer than 50 ms, or there was a pause. Begin and end are seconds of CLOCK_MONOTONIC;
/// `paused` is how much of the time were pauses that it was told of, `starved` how much other programs had
/// the processor that it wanted, and `pauses` is their number. The loop is asked every 5 ms, from a thread of
/// its own.
class MainLoopWatch final : public QObject
{
public:
    explicit MainLoopWatch(const QString& file);
    ~MainLoopWatch() override;
    MainLoopWatch(const MainLoopWatch&) = delete;
    MainLoopWatch& operator=(const MainLoopWatch&) = delete;
    MainLoopWatch(MainLoopWatch&&) = delete;
    MainLoopWatch& operator=(MainLoopWatch&&) = delete;

    /// The main loop's thread has slept on purpose. Called there.
    void addPause(double seconds)
    {
        _paused += seconds;
        ++_pauses;
    }

private:
    using Moment = std::chrono::steady_clock::time_point;

    void _ask();
    void _answer(Moment asked);

    int _file;
    double _paused = 0;
    int _pauses = 0;
    double _starved = 0;
    std::atomic<bool> _answered = true;
    std::atomic<bool> _ended = false;
    std::thread _thread;
};

} // namespace tarnwick
