// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

/// Files in the user's home that are for nobody else, whatever his umask is.
namespace tarnwick::private_file {

/// Makes the missing folders of `path`, each for the user only. False when one could not be made.
bool makeFolder(const QString& path);

/// Puts a file of these bytes in the place of `path`, at once and in one piece: there is the old file or the
/// new one at any moment. False when there is no room or no right to; then nothing has changed. What one that
/// was killed on the way has left beside it is written over by the next one.
[[nodiscard]] bool replace(const QString& path, QByteArrayView bytes);

} // namespace tarnwick::private_file
