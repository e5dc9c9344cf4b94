// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>

namespace tarnwick {

/// From the decimal text of an accessibility modifier code to the mask (ModifierFlag bits) of a key
/// equivalent. A code without an entry leaves an item its default mask, Command.
[[nodiscard]] QHash<QString, quint32> modifierLookUpTable();

} // namespace tarnwick
