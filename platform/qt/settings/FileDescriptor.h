// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick {

/// An open file, closed with its owner; negative when it could not be opened. Opening waits for nobody.
class FileDescriptor
{
public:
    FileDescriptor(const QString& path, int flags, mode_t mode = 0)
        : _number(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NONBLOCK, mode))
    {
    }
    ~FileDescriptor()
    {
        if (_number >= 0)
            ::close(_number);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int number() const { return _number; }
    explicit operator bool() const { return _number >= 0; }

private:
    int _number;
};

} // namespace tarnwick
