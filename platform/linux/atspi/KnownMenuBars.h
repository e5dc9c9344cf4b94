// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiWindowMatch.h"
#include "platform/linux/x11/X11Windows.h"

#include <QHash>

#include <chrono>

namespace tarnwick {

/// Which menu bar in the accessibility tree a window has, for windows whose bar need not be looked for again.
class KnownMenuBars
{
public:
    using Time = std::chrono::steady_clock::time_point;
    /// By then a tree no longer shows what was there before the window.
    static constexpr std::chrono::milliseconds Settled{500};

    /// Empty when it is to be looked for.
    [[nodiscard]] BusReference of(const X11Window& window) const;
    /// The window that is known to have the bar; none when it is not known.
    [[nodiscard]] xcb_window_t ownerOf(const BusReference& bar) const;

    /// It has been looked for: `bar` was found, or none when it is empty.
    void found(const X11Window& window, const BusReference& bar, AtspiWindowMatch::Certainty certainty,
               Time now);
    void forget(const X11Window& window) { _bars.remove(window.id); }

private:
    struct Bar
    {
        std::optional<qint64> processIdentifier;
        BusReference bar;
        bool certain = false;
        Time since;
    };
    QHash<xcb_window_t, Bar> _bars;
};

} // namespace tarnwick
