// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What a text becomes when it is handed on as a format without arguments: each "%%", from left to right,
/// turns into "%"; any other directive stays as it is written.
[[nodiscard]] QString expandPercentSigns(const QString& format);

} // namespace tarnwick
