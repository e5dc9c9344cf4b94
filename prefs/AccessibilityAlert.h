// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Action.h"
#include "foundation/Alerts.h"

namespace tarnwick {

/// Whether menus of other applications can be read.
[[nodiscard]] bool accessibilityGranted();

/// Tells that they cannot, and offers to do something about it.
[[nodiscard]] Alert accessibilityAlert();

/// Does what the button of accessibilityAlert() promises: the first one opens the desktop's accessibility
/// settings, the third one ends the program on behalf of `sender`.
void accessibilityAlertDidEnd(int returnCode, ActionSender* sender);

} // namespace tarnwick
