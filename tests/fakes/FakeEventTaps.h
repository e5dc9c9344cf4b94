// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"
#include "tests/fakes/Journal.h"

#include <QList>
#include <QMap>

#include <utility>

namespace tarnwick {

/// A mouse: taps that the system knows, and the test's presses.
class FakeEventTaps final : public EventTaps
{
public:
    struct Tap
    {
        Location location{};
        Placement placement{};
        Options options{};
        quint64 eventsOfInterest = 0;
        EventTapCallback callback;
        bool inMainRunLoop = false;
        bool enabled = false;
    };

    bool refuses = false;        ///< lever: the system lets nobody tap
    QMap<EventTapRef, Tap> taps; ///< look: the taps that were not released, oldest first
    QList<EventTapRef> everMade; ///< look
    int passedOn = 0;            ///< look: how many taps have passed the last event on
    Journal* journal = nullptr;  ///< "create", "add source", "enable", "disable", "release"

    /// Lever: something happens on the mouse. True when the event reached the application under it.
    bool send(quint32 type)
    {
        passedOn = 0;
        const TappedEvent event;
        const auto tapsNow = taps;
        for (auto each = tapsNow.cend(); each != tapsNow.cbegin();) {
            --each;
            const bool wanted = type < 64 && (each->eventsOfInterest >> type & 1U) != 0;
            if (!each->enabled || !each->inMainRunLoop || !wanted || !taps.contains(each.key()))
                continue;
            if (each->callback(type, &event) == nullptr)
                return false;
            ++passedOn;
        }
        return true;
    }

    /// Lever: the system switches a tap off and tells it by `reason`. True when the callback swallowed that.
    bool switchOff(EventTapRef tap, quint32 reason)
    {
        taps[tap].enabled = false;
        const TappedEvent event;
        return taps[tap].callback(reason, &event) == nullptr;
    }

    [[nodiscard]] EventTapRef create(Location location, Placement placement, Options options,
                                     quint64 eventsOfInterest, EventTapCallback callback) override
    {
        note(journal, QStringLiteral("create"));
        if (refuses)
            return 0;
        everMade.append(++_lastRef);
        taps.insert(_lastRef, {location, placement, options, eventsOfInterest, std::move(callback)});
        return _lastRef;
    }

    void addSourceToMainRunLoop(EventTapRef tap) override
    {
        note(journal, QStringLiteral("add source"));
        if (taps.contains(tap))
            taps[tap].inMainRunLoop = true;
    }

    void enable(EventTapRef tap, bool enable) override
    {
        note(journal, enable ? QStringLiteral("enable") : QStringLiteral("disable"));
        if (taps.contains(tap))
            taps[tap].enabled = enable;
    }

    void release(EventTapRef tap) override
    {
        note(journal, QStringLiteral("release"));
        taps.remove(tap);
    }

private:
    EventTapRef _lastRef = 0;
};

} // namespace tarnwick
