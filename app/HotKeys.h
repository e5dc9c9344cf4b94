// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/SharedPort.h"

#include <QtGlobal>

#include <functional>
#include <optional>

namespace tarnwick {

/// Names one registered hot key: a plain id, never used twice in a process.
using EventHotKeyRef = quint64;

struct EventHotKeyID
{
    quint32 signature = 0; ///< four characters
    quint32 id = 0;
};

/// System-wide hot keys. GUI thread only.
class HotKeys : public SharedPort<HotKeys>
{
public:
    virtual ~HotKeys() = default;

    /// The event-handler result by which a handler says that the press is dealt with.
    static constexpr qint32 noErr = 0;

    /// Installs a handler for presses of any registered hot key. A press is offered to the handlers from the
    /// newest to the oldest until one returns noErr. Runs from the event loop. Handlers are never removed.
    virtual void installEventHandler(std::function<qint32()> handler) = 0;

    /// Key code: a virtual key code, 0 to 127; modifiers: the system's event modifiers (0x100 Command, 0x200
    /// Shift, 0x800 Option, 0x1000 Control). Nothing when the key is out of range or somebody else holds the
    /// combination.
    [[nodiscard]] virtual std::optional<EventHotKeyRef>
    registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id, quint32 options) = 0;
    /// False when it is not registered, or no longer.
    virtual bool unregisterEventHotKey(EventHotKeyRef hotKey) = 0;
};

} // namespace tarnwick
