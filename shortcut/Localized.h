// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <initializer_list>
#include <optional>

namespace tarnwick {

/// `english` in the user's language, from the strings table "ShortcutRecorder"; itself when it is missing
/// there.
[[nodiscard]] QString localized(const char* english);

/// `format` with each "%@", or "%1$@" by number, replaced by a text. What comes in is not looked at again. A
/// missing text prints as "(null)"; "%%" is one percent sign.
[[nodiscard]] QString filledIn(const QString& format, std::initializer_list<std::optional<QString>> texts);

} // namespace tarnwick
