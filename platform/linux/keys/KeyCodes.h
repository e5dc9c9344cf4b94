// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// The largest key code that the core X protocol can grab or report.
inline constexpr quint16 MaximumX11KeyCode = 255;

/// The X key code (evdev code + 8) of the physical key that has this virtual key code. Nothing for the eight
/// unassigned codes and for those of 128 and above. Fn, 472, is above MaximumX11KeyCode.
[[nodiscard]] std::optional<quint16> x11KeyCodeOf(quint32 virtualKeyCode);

/// The virtual key code of the physical key that has this X key code; nothing when there is none.
[[nodiscard]] std::optional<quint16> virtualKeyCodeOf(quint32 x11KeyCode);

} // namespace tarnwick
