// SPDX-License-Identifier: MIT
#include "platform/linux/MenuBars.h"

#include "platform/linux/OwnMenuSource.h"

#include <QCoreApplication>

namespace tarnwick {

FoundMenuBar MenuBars::of(const FrontWindow& front)
{
    if (front.processIdentifier == QCoreApplication::applicationPid())
        return OwnMenuSource::hasBar() ? FoundMenuBar{&_own, OwnMenuSource::bar()} : FoundMenuBar{};
    const BusReference bar = _inTree.of(front);
    return bar ? FoundMenuBar{&_tree, bar} : FoundMenuBar{};
}

MenuBarOwner MenuBars::ownerOf(const FrontWindow& front)
{
    if (const FoundMenuBar found = of(front))
        return {found.bar};
    return {{}, _windows.withOwners(front.window).value(0)};
}

} // namespace tarnwick
