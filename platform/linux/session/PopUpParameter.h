// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontHint.h"

#include <QVariantList>

namespace tarnwick {

/// What comes with the action "pop-up": a map with "x" and "y" (int32), "pid" (int32) and "title" (string),
/// each of which may be missing. What is of another type, or cannot be, counts as missing, and so does what
/// comes besides; half a place is none.
[[nodiscard]] FrontHint popUpParameter(const QVariantList& parameter);

} // namespace tarnwick
