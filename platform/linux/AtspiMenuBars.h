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

    /// The window's own menu bar; empty when there is none. `active` is whether the window is in front.
    [[nodiscard]] BusReference ofWindow(const FrontWindow& window, bool active);

    /// Of a window that is known by its place in the tree; empty when there is none.
    [[nodiscard]] BusReference below(const BusReference& window);

    struct Found
    {
        BusReference bar;
        xcb_window_t owner = XCB_WINDOW_NONE; ///< none when it is not known which window has it
    };
    /// Whether the bar's application shows only open menus in its tree, so that a bar in it tells too little.
    [[nodiscard]] bool hidesClosedMenus(const BusReference& bar);
    /// The same of a process, without looking for a bar.
    [[nodiscard]] bool hidesClosedMenus(qint64 processIdentifier);

    /// Of any window of the application.
    [[nodiscard]] Found ofAnyWindow(qint64 processIdentifier);

private:
    struct Known
    {
        std::optional<qint64> processIdentifier;
        BusReference bar;
    };
    std::optional<AtspiWindowMatch> _match(const FrontWindow& window, bool active, Deadline deadline);

    AtspiBus& _bus;
    AtspiApplications& _applications;
    X11Windows& _windows;
    ReadingBudget& _budget;
    QHash<xcb_window_t, Known> _known;
};

} // namespace tarnwick
