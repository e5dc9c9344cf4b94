// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"
#include "foundation/SharedPort.h"

#include <optional>

namespace tarnwick {

/// The user's next events, for a control that tracks the mouse in a loop of its own. GUI thread only.
class EventSource : public SharedPort<EventSource>
{
public:
    virtual ~EventSource() = default;

    /// Waits, without a time limit and with the event loop running, for the next event whose type's bit (1 <<
    /// type) is set in `mask`. Nothing when the window or the program goes away meanwhile.
    [[nodiscard]] virtual std::optional<Event> nextEventMatchingMask(quint64 mask) = 0;
};

} // namespace tarnwick
