// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What the simulated frameworks export besides what their headers let a program call; null for anything
/// else. A function or the place of a constant.
[[nodiscard]] void* accessibilitySymbol(const QString& name);
[[nodiscard]] void* fileListSymbol(const QString& name);

} // namespace tarnwick
