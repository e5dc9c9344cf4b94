// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/FrontSwitches.h"

#include <utility>

namespace tarnwick {

void FrontSwitches::startFrom(const FrontWindow& front)
{
    _front = front;
    _owner.reset();
}

bool FrontSwitches::isSwitch(const FrontWindow& front)
{
    const FrontWindow previous = std::exchange(_front, front);
    if (previous == front)
        return false;
    if (!previous || !front || previous.processIdentifier != front.processIdentifier) {
        _owner.reset();
        return true;
    }
    const MenuBarOwner before = _owner ? *_owner : _ownerOf(previous);
    _owner = _ownerOf(front);
    return before != *_owner;
}

} // namespace tarnwick
