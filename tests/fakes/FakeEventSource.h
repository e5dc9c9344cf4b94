// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/EventSource.h"

#include <QList>

#include <algorithm>
#include <functional>
#include <iterator>

namespace tarnwick {

/// The user's events, lined up by the test. When they run out the window has gone away.
class FakeEventSource final : public EventSource
{
public:
    QList<Event> events;                       ///< lever: what comes; those that nobody waits for pass by
    std::function<void(const Event&)> arrives; ///< lever: what happens just before an event is given out
    QList<quint64> masks;                      ///< look: what was waited for

    [[nodiscard]] std::optional<Event> nextEventMatchingMask(quint64 mask) override
    {
        masks.append(mask);
        const auto next = std::find_if(events.cbegin(), events.cend(), [mask](const Event& each) {
            return (mask >> static_cast<quint32>(each.type) & 1U) != 0;
        });
        if (next == events.cend()) {
            events.clear();
            return std::nullopt;
        }
        const Event event = *next;
        events.erase(events.cbegin(), std::next(next));
        if (arrives)
            arrives(event);
        return event;
    }
};

} // namespace tarnwick
