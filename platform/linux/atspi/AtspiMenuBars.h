// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/atspi/AtspiToolkits.h"
#include "platform/linux/atspi/ChildrenJustTold.h"
#include "platform/linux/atspi/KnownMenuBars.h"
#include "platform/linux/menus/ReadingBudget.h"
#include "platform/linux/x11/X11Windows.h"

#include <QHash>

namespace tarnwick {

/// Finds the menu bar in the accessibility tree that belongs to a window. GUI thread only.
class AtspiMenuBars
{
public:
    /// All must outlive this.
    AtspiMenuBars(AtspiBus& bus, AtspiApplications& applications, AtspiToolkits& toolkits,
                  X11Windows& windows, ReadingBudget& budget, ChildrenJustTold& childrenJustTold);

    /// The window's own menu bar when it is known and still there; empty when it is to be looked for.
    [[nodiscard]] BusReference knownOf(const X11Window& window);
    /// Looks for the window's own menu bar; empty when there is none. `active` is whether the window is in
    /// front.
    [[nodiscard]] BusReference ofWindow(const X11Window& window, bool active);

    /// The application's windows, in its own order.
    [[nodiscard]] QList<BusReference> windowsOf(qint64 processIdentifier);
    /// The menus of a bar that have nothing in them while they are closed.
    [[nodiscard]] QList<BusReference> emptyMenusOf(const BusReference& bar);
    /// Of a window that is known by its place in the tree; empty when there is none.
    [[nodiscard]] BusReference below(const BusReference& window);

    struct Found
    {
        BusReference bar;
        xcb_window_t owner = XCB_WINDOW_NONE; ///< none when it is not known which window has it
    };
    /// Whether the window's application shows only open menus in its tree, so that a bar in it tells too
    /// little. False when the application is not to be found by its process.
    [[nodiscard]] bool hidesClosedMenus(const X11Window& window);
    /// What the application of an object in the tree is made with; nothing while that is not known.
    [[nodiscard]] std::optional<AtspiToolkit> toolkitOf(const BusReference& object);
    /// The same of the application of a bar.
    [[nodiscard]] bool hidesClosedMenus(const BusReference& bar);

    /// Of any window of the application.
    [[nodiscard]] Found ofAnyWindow(qint64 processIdentifier);

private:
    struct Hiding
    {
        qint64 processIdentifier;
        bool closedMenus;
    };
    std::optional<AtspiWindowMatch> _match(const X11Window& window, bool active, Deadline deadline);

    AtspiBus& _bus;
    AtspiApplications& _applications;
    AtspiToolkits& _toolkits;
    X11Windows& _windows;
    ReadingBudget& _budget;
    ChildrenJustTold& _childrenJustTold;
    KnownMenuBars _known;
    QHash<xcb_window_t, Hiding> _hiding;
};

} // namespace tarnwick
