// SPDX-License-Identifier: MIT
#pragma once

#include "platform/macos/system/CfOwned.h"

#include <QString>

namespace tarnwick {

/// Texts and file paths between Qt and Core Foundation. Both keep UTF-16 units, so nothing is lost.
[[nodiscard]] CfOwned<CFStringRef> cfString(const QString& text);
[[nodiscard]] QString textOfString(CFStringRef string); ///< empty for null

[[nodiscard]] CfOwned<CFURLRef> cfFileUrl(const QString& path, bool isDirectory);
/// Without a slash at the end; empty for null and for what is no file URL.
[[nodiscard]] QString filePathOf(CFURLRef url);

} // namespace tarnwick
