// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tarnwick {

/// The functions that tests/macos/frameworks declares, sorted: all that the adapters can call. Without the
/// two that keep the account of references and the one behind CFSTR, which is no call.
[[nodiscard]] QStringList declaredFunctions();

} // namespace tarnwick
