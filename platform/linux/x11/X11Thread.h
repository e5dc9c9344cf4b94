// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace tarnwick {

struct XcbDisconnect
{
    void operator()(xcb_connection_t* connection) const noexcept { xcb_disconnect(connection); }
};

/// An X connection beside the toolkit's.
using OwnX11Connection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

/// A connection to the display of the environment; null when there is none to be had.
[[nodiscard]] OwnX11Connection connectToX11();

/// A thread for what must be seen or done at once on an X connection while the GUI thread is busy. It ends
/// with the object or with the connection. Work that uses what the owner has must not outlive it: make this
/// the owner's last member.
class X11Thread
{
public:
    using Time = std::chrono::steady_clock::time_point;
    struct Work
    {
        /// Takes the connection's events and does what is due; on the thread, first of all at its start.
        std::function<void()> run;
        /// When to run at the latest, should no event come; nothing stands for never. On the thread.
        std::function<std::optional<Time>()> due;
    };

    /// `connection` stays the caller's.
    X11Thread(xcb_connection_t* connection, Work work);
    ~X11Thread();
    X11Thread(const X11Thread&) = delete;
    X11Thread& operator=(const X11Thread&) = delete;

    /// Lets the work run once more, though no event has come. Any thread.
    void wake();

private:
    void _run();
    /// False when the thread is to end.
    [[nodiscard]] bool _wait() const;

    xcb_connection_t* _connection;
    Work _work;
    int _signal;
    std::atomic_bool _ends = false;
    std::thread _thread;
};

} // namespace tarnwick
