// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <functional>
#include <memory>

namespace tarnwick {

/// Turns the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) into a call from the event loop. One
/// at a time in a process; what the process did with the signals before is restored with its end.
class TerminationSignals
{
public:
    explicit TerminationSignals(std::function<void()> requested);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    static constexpr std::array Signals = {SIGTERM, SIGINT, SIGHUP};

    std::array<int, 2> _pipe = {-1, -1};
    std::array<struct sigaction, Signals.size()> _previous = {};
    std::unique_ptr<QSocketNotifier> _notifier;
};

} // namespace tarnwick
