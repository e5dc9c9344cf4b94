// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <optional>

namespace tarnwick {

/// The whole number in `value`, cut off towards zero; nothing when it holds no number. Numbers from 2^63 on
/// come out as the negative ones with the same bits, those out of range as 0.
[[nodiscard]] std::optional<qint64> wholeNumber(const QVariant& value);

} // namespace tarnwick
