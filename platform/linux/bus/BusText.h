// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

inline constexpr qsizetype MaximumTextBytes = qsizetype{64} * 1024;

/// Text as other programs send it. Longer ones than 64 KiB are cut at a whole character.
[[nodiscard]] QString cutText(const char* bytes);

} // namespace tarnwick
