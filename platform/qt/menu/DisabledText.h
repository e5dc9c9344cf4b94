// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

namespace tarnwick {

/// `palette` with disabled text that can be told from its ground. Some dark and some high-contrast palettes
/// have them all but alike; others are left as they are.
[[nodiscard]] QPalette withLegibleDisabledText(QPalette palette);

} // namespace tarnwick
