// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Thread.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace tarnwick {

OwnX11Connection connectToX11()
{
    OwnX11Connection connection(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(connection.get()) == 0 ? std::move(connection) : nullptr;
}

X11Thread::X11Thread(xcb_connection_t* connection, Work work)
    : _connection(connection), _work(std::move(work)), _signal(eventfd(0, EFD_CLOEXEC)),
      _thread([this] { _run(); })
{
}

X11Thread::~X11Thread()
{
    _ends = true;
    wake();
    _thread.join();
    close(_signal);
}

void X11Thread::wake()
{
    static_cast<void>(eventfd_write(_signal, 1));
}

void X11Thread::_run()
{
    do
        _work.run();
    while (xcb_connection_has_error(_connection) == 0 && _wait());
}

bool X11Thread::_wait() const
{
    int limit = -1;
    if (const auto due = _work.due()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*due - Time::clock::now());
        limit = static_cast<int>(std::max<std::int64_t>(left.count(), 0));
    }
    pollfd sources[] = {{xcb_get_file_descriptor(_connection), POLLIN, 0}, {_signal, POLLIN, 0}};
    if (poll(sources, 2, limit) < 0)
        return errno == EINTR;
    eventfd_t woken = 0;
    if (sources[1].revents != 0)
        static_cast<void>(eventfd_read(_signal, &woken));
    return !_ends;
}

} // namespace tarnwick
