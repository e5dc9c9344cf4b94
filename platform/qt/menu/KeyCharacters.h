// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>
#include <QtGlobal>

#include <optional>

namespace tarnwick {

/// The character that a key stands for in an event where it does not type what the layout says: a control
/// character, or one from U+F700 on for arrows, function keys and their like. Nothing for other keys.
[[nodiscard]] std::optional<char16_t> characterOfKey(int key);

/// The key that the character stands for in a key equivalent. Nothing for characters that are typed.
[[nodiscard]] std::optional<Qt::Key> keyOfCharacter(char16_t character);

/// Whether the character is one of those that stand for keys only, whether or not a key here has it.
[[nodiscard]] bool standsForKey(char16_t character);

} // namespace tarnwick
