// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

enum class PaneIcon { HotKey, General, About };

/// The icon of a pane in the toolbar, drawn at whatever size and scale, in the colours of the desktop.
[[nodiscard]] QIcon paneIcon(PaneIcon pane);

} // namespace tarnwick
