// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tarnwick {

/// Takes connections at a path, and never answers.
class DeafBus
{
public:
    explicit DeafBus(QByteArray path) : _path(std::move(path))
    {
        unlink(_path.constData());
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        std::copy(_path.cbegin(), _path.cend(), name.sun_path);
        _listens = bind(_socket, reinterpret_cast<const sockaddr*>(&name), sizeof name) == 0 &&
                   listen(_socket, 5) == 0;
    }
    ~DeafBus()
    {
        close(_socket);
        unlink(_path.constData());
    }
    DeafBus(const DeafBus&) = delete;
    DeafBus& operator=(const DeafBus&) = delete;

    [[nodiscard]] bool listens() const { return _listens; }
    [[nodiscard]] QByteArray address() const { return "unix:path=" + _path; }

private:
    QByteArray _path;
    int _socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    bool _listens = false;
};

} // namespace tarnwick
