// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace tarnwick {

/// The second family of modifier bits: that of hot keys and of the desktop's own shortcuts. The first one is
/// ModifierFlag. The function-key bit is the same in both.
enum CarbonModifierFlag : quint64 {
    CarbonCommandKey = 0x100,
    CarbonShiftKey = 0x200,
    CarbonOptionKey = 0x800,
    CarbonControlKey = 0x1000,
};

/// The Cocoa bits of the Carbon bits; every other bit is dropped.
[[nodiscard]] quint64 SRCarbonToCocoaFlags(quint64 carbonFlags);

/// The Carbon bits of the Cocoa bits; every other bit is dropped.
[[nodiscard]] quint64 SRCocoaToCarbonFlags(quint64 cocoaFlags);

} // namespace tarnwick
