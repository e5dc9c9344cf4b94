// SPDX-License-Identifier: MIT
#include "platform/qt/settings/PrivateFile.h"

#include "platform/qt/settings/FileDescriptor.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace tarnwick::private_file {

namespace {

bool writeAll(int descriptor, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()));
        if (written < 0 && errno != EINTR)
            return false;
        bytes = bytes.sliced(std::max<ssize_t>(written, 0));
    }
    return true;
}

} // namespace

bool makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.exists())
        return folder.isDir();
    return makeFolder(folder.path()) &&
           QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

bool replace(const QString& path, QByteArrayView bytes)
{
    const QByteArray target = QFile::encodeName(path);
    const QString besidePath = path + u".new"_s;
    const QByteArray beside = QFile::encodeName(besidePath);
    ::unlink(beside.constData());
    const FileDescriptor descriptor(besidePath, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (!descriptor)
        return false;
    const bool replaced = writeAll(descriptor.number(), bytes) && ::fsync(descriptor.number()) == 0 &&
                          ::rename(beside.constData(), target.constData()) == 0;
    if (!replaced)
        ::unlink(beside.constData());
    return replaced;
}

} // namespace tarnwick::private_file
