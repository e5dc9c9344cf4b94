// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/Deadline.h"
#include "platform/linux/menus/MenuRow.h"

#include <QList>

#include <optional>

namespace tarnwick {

/// One way in which applications publish their menus. The references in its rows mean something to the
/// source that made them only. GUI thread only.
class MenuSource
{
public:
    virtual ~MenuSource() = default;

    /// The visible entries, read now, all at once; nothing when they could not be read.
    [[nodiscard]] virtual std::optional<QList<MenuRow>> readBar(const BusReference& bar) = 0;
    [[nodiscard]] virtual std::optional<QList<MenuRow>> readMenu(const BusReference& contents) = 0;

    /// Reads all menus below the bar that was read last, if `service` has it, for `most` at most. The pop-up
    /// that is open or opens next shows those that were read whole as they are now, whatever becomes of them.
    virtual void readAhead(const QByteArray& /*service*/, std::chrono::milliseconds /*most*/) {}

    /// Activates a row of kind Item once, soon. False when that is known to be impossible. Keyboard and
    /// pointer have been given back by now, and the display server knows it.
    virtual bool press(const MenuRow& row) = 0;

    /// Whether a row of kind Item, enabled when it was read, says by the deadline that it is not any more.
    [[nodiscard]] virtual bool isDisabledNow(const MenuRow& row, Deadline deadline) = 0;
};

} // namespace tarnwick
