// SPDX-License-Identifier: MIT
#include "platform/linux/elements/MenuBars.h"

#include "platform/linux/menus/OwnMenuSource.h"

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
    if (FoundMenuBar found = _ofWindow(front, true))
        return found;
    for (const xcb_window_t owner : _windows.withOwners(front.window).mid(1))
        if (FoundMenuBar found = _ofWindow({owner, _windows.processIdentifier(owner)}, false))
            return found;
    return front.processIdentifier ? _ofAnyWindow(*front.processIdentifier) : FoundMenuBar();
}

FoundMenuBar MenuBars::_ofWindow(const FrontWindow& window, bool active)
{
    AtspiMenuBars& tree = _places.inTree;
    const BusReference known = tree.knownOf(window);
    if (known && !tree.hidesClosedMenus(known))
        return {&_places.tree, known, window.window};
    const BusReference exported = _places.exported.ofWindow(window.window);
    FoundMenuBar second{exported ? &_places.exports : nullptr, exported, window.window};
    if (second && tree.hidesClosedMenus(window))
        return second;
    const BusReference inTree = known ? known : tree.ofWindow(window, active);
    // Asked without a second one, too, so that it is known the next time.
    const bool hidden = inTree && tree.hidesClosedMenus(inTree);
    if (!inTree || (second && hidden))
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
