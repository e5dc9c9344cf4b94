// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QtGlobal>

#include <functional>

namespace tarnwick {

/// One event that a tap saw; opaque to the core, alive during the callback only.
class TappedEvent
{
public:
    virtual ~TappedEvent() = default;
};

/// Names one tap; 0 is none. Never used twice in a process.
using EventTapRef = quint64;

/// `type` is an event type, or one of the two numbers by which the system tells that it has switched the tap
/// off. Gives back the event that goes on to the application, or null to swallow it. Must return quickly.
using EventTapCallback = std::function<const TappedEvent*(quint32 type, const TappedEvent* event)>;

inline constexpr quint32 EventTapOtherMouseDown = 25;
inline constexpr quint32 EventTapDisabledByTimeout = 0xFFFFFFFE;
inline constexpr quint32 EventTapDisabledByUserInput = 0xFFFFFFFF;

/// System-wide observers of input events. Callbacks run on the GUI thread, from the main run loop, while
/// menus are tracked too; never inside one of these calls, never after release. GUI thread only.
class EventTaps : public SharedPort<EventTaps>
{
public:
    virtual ~EventTaps() = default;

    enum Location : quint32 { AnnotatedSessionEventTap = 2 };
    enum Placement : quint32 { HeadInsertEventTap = 0 };
    enum Options : quint32 { EventTapOptionDefault = 0 };

    /// A tap for the event types whose bits are set in `eventsOfInterest`; it delivers nothing before it is
    /// added to the main run loop and enabled. 0 when the system refuses.
    [[nodiscard]] virtual EventTapRef create(Location location, Placement placement, Options options,
                                             quint64 eventsOfInterest, EventTapCallback callback) = 0;
    /// Adds the tap's source to the main run loop, in its common modes, with order 0.
    virtual void addSourceToMainRunLoop(EventTapRef tap) = 0;
    virtual void enable(EventTapRef tap, bool enable) = 0;
    virtual void release(EventTapRef tap) = 0;
};

} // namespace tarnwick
