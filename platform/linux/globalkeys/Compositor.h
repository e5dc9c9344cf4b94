// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace tarnwick {

/// The Wayland compositors whose configuration is known here.
enum class Compositor { Unknown, Sway, Labwc, Niri, River, Hyprland, Wayfire, KWin, Mutter };

/// By what the session's environment says; `variable` tells the value of one, empty for none.
[[nodiscard]] Compositor compositorOf(const std::function<QString(const char* name)>& variable);
/// Of this process's environment.
[[nodiscard]] Compositor compositorOfSession();

} // namespace tarnwick
