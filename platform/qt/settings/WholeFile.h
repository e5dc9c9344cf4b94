// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwick {

/// The bytes of a regular file; empty when there is none. Nothing when it cannot be read, has more than
/// `largest` bytes, or is no regular file: nobody is waited for, a pipe's other end neither. Any thread.
[[nodiscard]] std::optional<QByteArray> wholeFile(const QString& path, qint64 largest);

} // namespace tarnwick
