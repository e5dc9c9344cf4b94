// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiToolkit.h"
#include "platform/linux/menus/KeyBinding.h"

namespace tarnwick {

/// What a toolkit publishes as the key binding of the item named `name`. Nothing when the item has no
/// shortcut, only a mnemonic, or one that is more than one key.
[[nodiscard]] std::optional<KeyBinding> keyBindingOf(const QString& text, const QString& name,
                                                     AtspiToolkit toolkit);

} // namespace tarnwick
