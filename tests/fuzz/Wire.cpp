// SPDX-License-Identifier: MIT
#include "tests/fuzz/Wire.h"

#include "tests/fuzz/Fuzzing.h"

#include <array>
#include <sys/socket.h>
#include <unistd.h>

namespace tarnwick {

namespace {

constexpr qsizetype LongestSignature = 64; // a longer one is no other trial

void append(QByteArray& message, quint32 number)
{
    for (int byte = 0; byte < 4; ++byte) // little endian, as the message says of itself
        message.append(static_cast<char>(number >> 8 * byte & 0xFFU));
}

void pad(QByteArray& message, qsizetype alignment)
{
    while (message.size() % alignment != 0)
        message.append('\0');
}

/// A reply to call number 1, as the protocol lays it out.
QByteArray messageOf(const QByteArray& signature, QByteArrayView body)
{
    QByteArray fields("\x05\x01u\0", 4); // reply serial, a number
    append(fields, 1);
    fields.append("\x08\x01g\0", 4); // signature
    fields.append(static_cast<char>(signature.size()));
    fields.append(signature);
    fields.append('\0');

    QByteArray message("l\x02\x01\x01", 4); // a reply that wants none
    append(message, static_cast<quint32>(body.size()));
    append(message, 7); // its own serial
    append(message, static_cast<quint32>(fields.size()));
    message.append(fields);
    pad(message, 8);
    return message.append(body);
}

} // namespace

Wire& Wire::shared()
{
    static Wire wire;
    return wire;
}

Wire::Wire()
{
    std::array<int, 2> ends{};
    require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()) == 0, "there are sockets");
    _end = ends[1];
    const sd_id128_t id = {{1}};
    require(sd_bus_new(&_bus) >= 0 && sd_bus_set_fd(_bus, ends[0], ends[0]) >= 0 && sd_bus_start(_bus) >= 0 &&
                sd_bus_new(&_other) >= 0 && sd_bus_set_fd(_other, _end, _end) >= 0 &&
                sd_bus_set_server(_other, 1, id) >= 0 && sd_bus_start(_other) >= 0,
            "two ends are connected");
    while (sd_bus_is_ready(_bus) == 0 || sd_bus_is_ready(_other) == 0) {
        sd_bus_process(_other, nullptr);
        sd_bus_process(_bus, nullptr);
    }
}

int Wire::feed(FuzzInput& input, const std::function<void(sd_bus_message*)>& check)
{
    const QByteArray signature = input.until('\0').toByteArray();
    if (signature.size() > LongestSignature)
        return -1;
    if (const SdBusMessage message = _receive(signature, input.rest()))
        check(message.get());
    return 0;
}

SdBusMessage Wire::_receive(const QByteArray& signature, QByteArrayView body)
{
    const QByteArray bytes = messageOf(signature, body);
    require(write(_end, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size(),
            "a message fits");
    sd_bus_message* message = nullptr;
    while (!message && sd_bus_process(_bus, &message) > 0) {
    }
    require(sd_bus_is_open(_bus) > 0, "the connection stays");
    return SdBusMessage(message);
}

SdBusMessage Wire::empty() const
{
    sd_bus_message* message = nullptr;
    require(sd_bus_message_new(_bus, &message, SD_BUS_MESSAGE_METHOD_RETURN) >= 0, "there is a message");
    return SdBusMessage(message);
}

} // namespace tarnwick
