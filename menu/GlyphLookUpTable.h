// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

namespace tarnwick {

/// From the decimal text of an accessibility glyph code (a key without a printable character) to the one
/// character that stands for the key as a key equivalent.
[[nodiscard]] QHash<QString, QString> glyphLookUpTable();

} // namespace tarnwick
