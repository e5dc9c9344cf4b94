// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/AtspiApplications.h"
#include "platform/linux/AtspiWindowMatch.h"
#include "platform/linux/ReadingBudget.h"
#include "platform/linux/X11Windows.h"

#include <QHash>

namespace tarnwick {

/// Finds the menu bar in the accessibility tree that belongs to a window. GUI thread only.
class AtspiMenuBars
{
public:
    /// All must outlive this.
    AtspiMenuBars(AtspiBus& bus, AtspiApplications& applications, X11Windows& windows, ReadingBudget& budget);

    struct Found
    {
        BusReference bar;
        xcb_window_t owner = XCB_WINDOW_NONE; ///< none when it is not known which window has it
    };

    /// The window's own menu bar, else that of a window it is transient for, else that of any window of the
    /// same application; empty when there is none.
    [[nodiscard]] Found of(const FrontWindow& front);

private:
    struct Known
    {
        std::optional<qint64> processIdentifier;
        BusReference bar;
    };
    BusReference _ofOneWindow(const FrontWindow& window, bool active, Deadline deadline);
    Found _ofAnyWindow(qint64 processIdentifier, Deadline deadline);
    std::optional<AtspiWindowMatch> _match(const FrontWindow& window, bool active, Deadline deadline);
    QList<AtspiFacts> _windowsOf(const QList<BusReference>& roots, Deadline deadline);

    AtspiBus& _bus;
    AtspiApplications& _applications;
    X11Windows& _windows;
    ReadingBudget& _budget;
    QHash<xcb_window_t, Known> _known;
};

} // namespace tarnwick
