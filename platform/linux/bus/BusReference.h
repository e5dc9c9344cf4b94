// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHashFunctions>

namespace tarnwick {

/// An object of another program on a bus. Empty when it stands for nothing.
struct BusReference
{
    QByteArray service;
    QByteArray path;
    int connection = 0; ///< the connection of ours that the service name was seen on

    /// Text that is the same for equal references only.
    [[nodiscard]] QByteArray identity() const
    {
        return QByteArray::number(connection) + ' ' + service + ' ' + path;
    }
    explicit operator bool() const { return !path.isEmpty(); }
    friend bool operator==(const BusReference&, const BusReference&) = default;
    friend size_t qHash(const BusReference& reference, size_t seed = 0)
    {
        return qHashMulti(seed, reference.service, reference.path, reference.connection);
    }
};

} // namespace tarnwick
