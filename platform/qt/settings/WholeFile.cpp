// SPDX-License-Identifier: MIT
#include "platform/qt/settings/WholeFile.h"

#include "platform/qt/settings/FileDescriptor.h"

#include <QFile>

#include <cerrno>
#include <sys/stat.h>

namespace tarnwick {

std::optional<QByteArray> wholeFile(const QString& path, qint64 largest)
{
    const FileDescriptor descriptor(path, O_RDONLY);
    if (!descriptor)
        return errno == ENOENT || errno == ENOTDIR ? std::optional(QByteArray()) : std::nullopt;
    struct stat status = {};
    if (::fstat(descriptor.number(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > largest)
        return std::nullopt;
    QFile file;
    if (!file.open(descriptor.number(), QIODevice::ReadOnly))
        return std::nullopt;
    // As much memory as the file has: larger pieces, given back, keep the allocator from giving back any.
    const QByteArray bytes = file.read(status.st_size);
    return file.error() == QFile::NoError ? std::optional(bytes) : std::nullopt;
}

} // namespace tarnwick
