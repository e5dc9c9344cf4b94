// SPDX-License-Identifier: MIT
#pragma once

#include <systemd/sd-bus.h>

#include <memory>

namespace tarnwick {

struct SdBusMessageUnref
{
    void operator()(sd_bus_message* message) const noexcept { sd_bus_message_unref(message); }
};

struct SdBusSlotUnref
{
    void operator()(sd_bus_slot* slot) const noexcept { sd_bus_slot_unref(slot); }
};

/// For messages and slots that sd-bus hands over to the caller. A slot that is let go of cancels its call.
using SdBusMessage = std::unique_ptr<sd_bus_message, SdBusMessageUnref>;
using SdBusSlot = std::unique_ptr<sd_bus_slot, SdBusSlotUnref>;

} // namespace tarnwick
