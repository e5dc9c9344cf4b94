// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/FrontSwitches.h"

#include <utility>

namespace tarnwick {

namespace {

/// A window whose place in the accessibility tree was not known, or is not known any more, and is so now:
/// what has been read of the one says nothing of the other.
bool isFoundOrLost(const FrontWindow& before, const FrontWindow& now)
{
    return before.isNative() && now.isNative() && bool(before.accessible) != bool(now.accessible);
}

} // namespace

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
    if (!previous || !front || previous.processIdentifier != front.processIdentifier ||
        isFoundOrLost(previous, front)) {
        _owner.reset();
        return true;
    }
    const MenuBarOwner before = _owner ? *_owner : _ownerOf(previous);
    _owner = _ownerOf(front);
    return before != *_owner;
}

} // namespace tarnwick
