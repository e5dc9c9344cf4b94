// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBusMessage.h"

#include <QByteArray>

namespace tarnwick {

/// A bus connection whose other end sends any bytes. It ends with the program.
class Wire
{
public:
    static Wire& shared();
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;

    /// The reply whose body is `body` in the types that `signature` says, as it arrives. Null when the bus
    /// library itself takes no such message.
    [[nodiscard]] SdBusMessage receive(const QByteArray& signature, QByteArrayView body);
    /// A message that can be appended to, and then be sealed and read.
    [[nodiscard]] SdBusMessage empty() const;

private:
    Wire();
    ~Wire() = default;

    sd_bus* _bus = nullptr;
    sd_bus* _other = nullptr;
    int _end = -1;
};

} // namespace tarnwick
