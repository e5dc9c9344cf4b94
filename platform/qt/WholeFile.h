// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

/// The bytes of a regular file; empty when there is none. Nothing when it cannot be read, has more than
/// `largest` bytes, or is no regular file: a pipe, which would be waited for, stays unopened. Any thread.
[[nodiscard]] std::optional<QByteArray> wholeFile(const QString& path, qint64 largest);

} // namespace tarnwick
