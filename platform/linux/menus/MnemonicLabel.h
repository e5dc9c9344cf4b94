// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tarnwick {

/// What is seen of a label in which a single underscore, or another mark, stands before the letter of its
/// mnemonic, and two stand for one. Trimmed, and without what follows a tab.
[[nodiscard]] QString titleOfMnemonicLabel(const QString& label, QChar mark = u'_');

} // namespace tarnwick
