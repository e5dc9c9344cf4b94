// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace tarnwick {

/// The first UTF-16 unit of what the key types on the current keyboard layout, empty when it types nothing.
/// Nothing without a layout or when the layout refuses. `modifierKeyState` as KeyboardLayout takes it.
[[nodiscard]] std::optional<QString> unitForKeyOnCurrentLayout(quint16 keyCode, quint32 modifierKeyState);

} // namespace tarnwick
