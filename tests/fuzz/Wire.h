// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBusMessage.h"

#include <QByteArray>

#include <functional>

namespace tarnwick {

class FuzzInput;

/// A bus connection whose other end sends any bytes. It ends with the program.
class Wire
{
public:
    static Wire& shared();
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;

    /// Takes the rest of the input for a message, the signature, a zero byte and the body, and has it checked
    /// as it arrives, unless the bus library itself takes no such message. Gives what the fuzzer is to be
    /// told: whether the input is worth keeping.
    [[nodiscard]] int feed(FuzzInput& input, const std::function<void(sd_bus_message*)>& check);
    /// A message that can be appended to, and then be sealed and read.
    [[nodiscard]] SdBusMessage empty() const;

private:
    Wire();
    ~Wire() = default;

    [[nodiscard]] SdBusMessage _receive(const QByteArray& signature, QByteArrayView body);

    sd_bus* _bus = nullptr;
    sd_bus* _other = nullptr;
    int _end = -1;
};

} // namespace tarnwick
