// SPDX-License-Identifier: MIT
#include "platform/linux/bus/ProcessConnections.h"

#include "platform/linux/bus/SdBus.h"

namespace tarnwick {

namespace {

constexpr const char* BusService = "org.freedesktop.DBus";
constexpr const char* BusPath = "/org/freedesktop/DBus";
constexpr qsizetype MaximumConnections = 1'000;

SdBusMessage askBus(SdBus& bus, const char* member)
{
    return bus.methodCall(BusService, BusPath, BusService, member);
}

QByteArray textIn(sd_bus_message* reply)
{
    const char* text = nullptr;
    return reply && sd_bus_message_read(reply, "s", &text) > 0 ? QByteArray(text) : QByteArray();
}

/// The names of connections, which begin with a colon.
QByteArrayList connectionsIn(sd_bus_message* reply)
{
    QByteArrayList found;
    const char* name = nullptr;
    if (!reply || sd_bus_message_enter_container(reply, SD_BUS_TYPE_ARRAY, "s") < 0)
        return found;
    while (found.size() < MaximumConnections && sd_bus_message_read(reply, "s", &name) > 0)
        if (*name == ':')
            found.append(name);
    return found;
}

} // namespace

QByteArrayList connectionsOf(qint64 processIdentifier, SdBus& bus, Deadline deadline)
{
    const QByteArrayList all = connectionsIn(bus.call(askBus(bus, "ListNames"), deadline).get());
    QByteArrayList found;
    bus.exchange(
        all.size(),
        [&](qsizetype index) {
            SdBusMessage call = askBus(bus, "GetConnectionUnixProcessID");
            if (call && sd_bus_message_append(call.get(), "s", all[index].constData()) < 0)
                call.reset();
            return call;
        },
        [&](qsizetype index, sd_bus_message* reply) {
            quint32 process = 0;
            if (sd_bus_message_read(reply, "u", &process) > 0 && process == processIdentifier)
                found.append(all[index]);
        },
        deadline);
    return found;
}

QHash<QByteArray, BusObject> introspect(const QByteArray& service, const QByteArrayList& paths, SdBus& bus,
                                        Deadline deadline)
{
    QHash<QByteArray, BusObject> objects;
    if (deadline.passed())
        return objects;
    bus.exchange(
        paths.size(),
        [&](qsizetype index) {
            SdBusMessage call =
                bus.methodCall(service, paths[index], "org.freedesktop.DBus.Introspectable", "Introspect");
            if (call)
                sd_bus_message_set_auto_start(call.get(), 0);
            return call;
        },
        [&](qsizetype index, sd_bus_message* reply) {
            objects.insert(paths[index], BusObject::fromIntrospection(textIn(reply)));
        },
        deadline);
    return objects;
}

} // namespace tarnwick
