// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Whether a window of ours is on the screen; menus, panels and what serves the toolkit are none. GUI thread
/// only.
[[nodiscard]] bool anyWindowVisible();

} // namespace tarnwick
