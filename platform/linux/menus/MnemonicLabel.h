// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What is seen of a label in which a single underscore marks the letter that follows it, and two stand for
/// one. Trimmed, and without what follows a tab.
[[nodiscard]] QString titleOfMnemonicLabel(const QString& label);

} // namespace tarnwick
