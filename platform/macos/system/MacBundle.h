// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// Path of the bundle that the program was started from; that of the folder of a program without one. Empty
/// when it cannot be told.
[[nodiscard]] QString mainBundlePath();

/// Path of a resource of that bundle; empty when it is missing.
[[nodiscard]] QString mainBundleResource(const QString& name, const QString& type);

} // namespace tarnwick
