// SPDX-License-Identifier: MIT
#include "platform/linux/MenuBars.h"

#include "platform/linux/OwnMenuSource.h"

#include <QCoreApplication>

namespace tarnwick {

FoundMenuBar MenuBars::of(const FrontWindow& front)
{
    if (front.processIdentifier == QCoreApplication::applicationPid())
        return OwnMenuSource::hasBar() ? FoundMenuBar{&_places.own, OwnMenuSource::bar(), XCB_WINDOW_NONE}
                                       : FoundMenuBar{};
    if (!front)
        return {};
    if (const BusReference bar = front.inTree ? _places.inTree.below(front.inTree) : BusReference())
        return {&_places.tree, bar, XCB_WINDOW_NONE};
    for (const xcb_window_t window : _windows.withOwners(front.window)) {
        const bool active = window == front.window;
        const FrontWindow one{window, active ? front.processIdentifier : _windows.processIdentifier(window)};
        if (FoundMenuBar found = _ofWindow(one, active))
            return found;
    }
    return front.processIdentifier ? _ofAnyWindow(*front.processIdentifier) : FoundMenuBar();
}

FoundMenuBar MenuBars::_ofWindow(const FrontWindow& window, bool active)
{
    AtspiMenuBars& tree = _places.inTree;
    const BusReference exported = _places.exported.ofWindow(window.window);
    FoundMenuBar second{exported ? &_places.exports : nullptr, exported, window.window};
    if (second && window.processIdentifier && tree.hidesClosedMenus(*window.processIdentifier))
        return second;
    const BusReference inTree = tree.ofWindow(window, active);
    if (!inTree || (second && tree.hidesClosedMenus(inTree)))
        return second;
    return {&_places.tree, inTree, window.window};
}

FoundMenuBar MenuBars::_ofAnyWindow(qint64 processIdentifier)
{
    if (const AtspiMenuBars::Found found = _places.inTree.ofAnyWindow(processIdentifier); found.bar)
        return {&_places.tree, found.bar, found.owner};
    for (const xcb_window_t window : _windows.windowsOf(processIdentifier))
        if (const BusReference exported = _places.exported.ofWindow(window))
            return {&_places.exports, exported, window};
    return {};
}

MenuBarOwner MenuBars::ownerOf(const FrontWindow& front)
{
    const FoundMenuBar found = of(front);
    if (!found)
        return front.inTree ? MenuBarOwner{XCB_WINDOW_NONE, front.inTree}
                            : MenuBarOwner{_windows.withOwners(front.window).last(), {}};
    return found.owner != XCB_WINDOW_NONE ? MenuBarOwner{found.owner, {}}
                                          : MenuBarOwner{XCB_WINDOW_NONE, found.bar};
}

} // namespace tarnwick
