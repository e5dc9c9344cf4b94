// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusConnection>

#include <functional>

struct sd_bus;
struct sd_bus_message;

namespace tarnwick {

/// A connection of Qt's, for objects to be registered on, whose other end calls them with any arguments.
/// There is no bus between the two. It ends with the program, of which it makes the Qt application.
class PeerBus
{
public:
    static PeerBus& shared();
    PeerBus(const PeerBus&) = delete;
    PeerBus& operator=(const PeerBus&) = delete;

    [[nodiscard]] QDBusConnection& connection() { return _connection; }

    struct Call
    {
        const char* path;
        const char* interface;
        const char* member;
    };

    /// Calls with the arguments of `arguments`, and returns when the call is answered, with a result or an
    /// error, and what it has left in the event loop is done. False for arguments that no bus would hand on.
    bool call(const Call& what, sd_bus_message* arguments);

private:
    PeerBus();
    ~PeerBus() = default;
    /// Lets both ends work until `done` holds.
    void _until(const std::function<bool()>& done);

    sd_bus* _bus = nullptr;
    QDBusConnection _connection;
};

} // namespace tarnwick
