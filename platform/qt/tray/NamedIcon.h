// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarnwick {

/// `picture` with the name of the same icon in the desktop's theme: whoever shows it may take that one, and
/// draw it in colours of his own.
[[nodiscard]] QIcon namedIcon(const QIcon& picture, const QString& name);

} // namespace tarnwick
