// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QKeyEvent;

namespace tarnwick {

/// Whether the key has the open menu searched: "/", Ctrl+F or Ctrl+K.
[[nodiscard]] bool beginsSearch(const QKeyEvent& event);

/// What a key does in the search; all others go into the text.
enum class SearchKey {
    Text,
    Choose,
    Leave,
    ShowInMenu, ///< when the cursor is at the end of the text
    Up,
    Down,
    PageUp,
    PageDown,
};

/// In a text that runs from right to left the key that leads on is the one to the left.
[[nodiscard]] SearchKey searchKey(const QKeyEvent& event, Qt::LayoutDirection direction);

} // namespace tarnwick
