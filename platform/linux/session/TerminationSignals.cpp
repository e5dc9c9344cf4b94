// SPDX-License-Identifier: MIT
#include "platform/linux/session/TerminationSignals.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tarnwick {

namespace {

std::atomic<int> writeEnd = -1;

extern "C" void onTerminationSignal(int /*number*/)
{
    const int saved = errno;
    const char byte = 0;
    // A full pipe holds a request already.
    [[maybe_unused]] const ssize_t written = ::write(writeEnd.load(), &byte, 1);
    errno = saved;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> requested)
{
    if (::pipe2(_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = _pipe[1];
    _notifier = std::make_unique<QSocketNotifier>(_pipe[0], QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(),
                     [this, requested = std::move(requested)] {
                         std::array<char, 16> bytes;
                         while (::read(_pipe[0], bytes.data(), bytes.size()) > 0)
                             continue;
                         requested();
                     });
    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        ::sigaction(Signals.at(i), nullptr, &_previous.at(i));
        // Whoever started us with a signal ignored (nohup) wants it so.
        if (_previous.at(i).sa_handler != SIG_IGN)
            ::sigaction(Signals.at(i), &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (_pipe[0] < 0)
        return;
    for (std::size_t i = 0; i < Signals.size(); ++i)
        ::sigaction(Signals.at(i), &_previous.at(i), nullptr);
    _notifier.reset();
    writeEnd = -1;
    ::close(_pipe[0]);
    ::close(_pipe[1]);
}

} // namespace tarnwick
