// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Windows.h"

#include <chrono>
#include <optional>

namespace tarnwick {

/// Makes the sequence of front windows out of what is seen. Window managers say "no window" for a moment
/// during every switch, so that counts only when it lasts.
class FrontWindowFilter
{
public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds NoneCountsAfter{200};

    /// `seen` as X11Windows::front() gives it. The front window, when this makes it another one.
    [[nodiscard]] std::optional<X11Window> see(const std::optional<X11Window>& seen, Time now);

    /// When to see again although nothing has changed.
    [[nodiscard]] std::optional<Time> due() const;

private:
    X11Window _front;
    std::optional<Time> _noneSince;
};

} // namespace tarnwick
