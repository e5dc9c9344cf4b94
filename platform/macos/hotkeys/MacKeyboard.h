// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/application/QtEventConverter.h"

namespace tarnwick {

class KeyboardLayout;

/// Describes Qt's events with the system's own key codes and the characters of `layout`, which must outlive
/// it.
[[nodiscard]] QtEventConverter makeMacEventConverter(const KeyboardLayout& layout);

} // namespace tarnwick
