// SPDX-License-Identifier: MIT
// Stands before the two functions of sd-bus that the program sends with, and counts.
#include <systemd/sd-bus.h>

static long sent;

int __real_sd_bus_call_async(sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message,
                             sd_bus_message_handler_t callback, void* data, uint64_t limit);
int __real_sd_bus_send(sd_bus* bus, sd_bus_message* message, uint64_t* cookie);
int __wrap_sd_bus_call_async(sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message,
                             sd_bus_message_handler_t callback, void* data, uint64_t limit);
int __wrap_sd_bus_send(sd_bus* bus, sd_bus_message* message, uint64_t* cookie);
long bench_messages_sent(void);

long bench_messages_sent(void)
{
    return sent;
}

int __wrap_sd_bus_call_async(sd_bus* bus, sd_bus_slot** slot, sd_bus_message* message,
                             sd_bus_message_handler_t callback, void* data, uint64_t limit)
{
    ++sent;
    return __real_sd_bus_call_async(bus, slot, message, callback, data, limit);
}

int __wrap_sd_bus_send(sd_bus* bus, sd_bus_message* message, uint64_t* cookie)
{
    ++sent;
    return __real_sd_bus_send(bus, message, cookie);
}
