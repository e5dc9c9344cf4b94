// SPDX-License-Identifier: MIT
#include "shortcut/ModifierFlags.h"

#include "foundation/Event.h"

namespace tarnwick {

namespace {

struct Pair
{
    quint64 carbon;
    quint64 cocoa;
};

constexpr Pair Pairs[] = {
    {CarbonCommandKey, CommandKeyMask}, {CarbonOptionKey, AlternateKeyMask},
    {CarbonControlKey, ControlKeyMask}, {CarbonShiftKey, ShiftKeyMask},
    {FunctionKeyMask, FunctionKeyMask},
};

} // namespace

quint64 SRCarbonToCocoaFlags(quint64 carbonFlags)
{
    quint64 cocoaFlags = 0;
    for (const Pair& pair : Pairs) {
        if (carbonFlags & pair.carbon)
            cocoaFlags |= pair.cocoa;
    }
    return cocoaFlags;
}

quint64 SRCocoaToCarbonFlags(quint64 cocoaFlags)
{
    quint64 carbonFlags = 0;
    for (const Pair& pair : Pairs) {
        if (cocoaFlags & pair.cocoa)
            carbonFlags |= pair.carbon;
    }
    return carbonFlags;
}

} // namespace tarnwick
