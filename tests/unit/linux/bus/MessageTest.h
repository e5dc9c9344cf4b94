// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBusMessage.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

namespace tarnwick {

/// Makes messages without any bus: its peer never answers.
class MessageTest : public ::testing::Test
{
protected:
    MessageTest()
    {
        int ends[2];
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
        _peer = ends[1];
        EXPECT_GE(sd_bus_new(&_bus), 0);
        EXPECT_GE(sd_bus_set_fd(_bus, ends[0], ends[0]), 0);
        EXPECT_GE(sd_bus_start(_bus), 0);
    }
    ~MessageTest() override
    {
        sd_bus_close_unref(_bus);
        close(_peer);
    }

    /// A reply that can be read, with the given contents.
    template <typename... Arguments>
    SdBusMessage reply(const char* types, Arguments... arguments)
    {
        SdBusMessage message = empty();
        EXPECT_GE(sd_bus_message_append(message.get(), types, arguments...), 0);
        return sealed(std::move(message));
    }

    SdBusMessage empty()
    {
        sd_bus_message* message = nullptr;
        EXPECT_GE(sd_bus_message_new(_bus, &message, SD_BUS_MESSAGE_METHOD_RETURN), 0);
        return SdBusMessage(message);
    }

    static SdBusMessage sealed(SdBusMessage message)
    {
        EXPECT_GE(sd_bus_message_seal(message.get(), 1, 0), 0);
        return message;
    }

private:
    sd_bus* _bus = nullptr;
    int _peer = -1;
};

} // namespace tarnwick
