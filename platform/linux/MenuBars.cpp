// SPDX-License-Identifier: MIT
#include "platform/linux/MenuBars.h"

#include "platform/linux/OwnMenuSource.h"

#include <QCoreApplication>

namespace tarnwick {

FoundMenuBar MenuBars::of(const FrontWindow& front)
{
    if (front.processIdentifier == QCoreApplication::applicationPid())
        return OwnMenuSource::hasBar() ? FoundMenuBar{&_own, OwnMenuSource::bar(), XCB_WINDOW_NONE}
                                       : FoundMenuBar{};
    const AtspiMenuBars::Found found = _inTree.of(front);
    return found.bar ? FoundMenuBar{&_tree, found.bar, found.owner} : FoundMenuBar{};
}

MenuBarOwner MenuBars::ownerOf(const FrontWindow& front)
{
    const FoundMenuBar found = of(front);
    if (!found)
        return {_windows.withOwners(front.window).last(), {}};
    return found.owner != XCB_WINDOW_NONE ? MenuBarOwner{found.owner, {}}
                                          : MenuBarOwner{XCB_WINDOW_NONE, found.bar};
}

} // namespace tarnwick
