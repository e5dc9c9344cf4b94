// SPDX-License-Identifier: MIT
// For Objective-C++ only.
#pragma once

#include <QFont>

#import <AppKit/AppKit.h>

namespace tarnwick {

/// The font, autoreleased; the menu font of its size where the system has no such family.
[[nodiscard]] NSFont* nsFont(const QFont& font);

} // namespace tarnwick
