// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <xkbcommon/xkbcommon.h>

namespace tarnwick {

/// The keysym of this name, in any case when there is none in this one; XKB_KEY_NoSymbol for names of none,
/// and for numbers that no keysym has.
[[nodiscard]] xkb_keysym_t keysymNamed(const QString& name);

} // namespace tarnwick
