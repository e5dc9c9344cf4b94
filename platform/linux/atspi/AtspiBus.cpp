// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiBus.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"
#include "platform/linux/bus/SessionBus.h"

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// After a failure to connect nothing is tried for this long.
constexpr auto Pause = 250ms;

SdBusMessage property(SdBus& bus, const BusReference& of, const char* interface, const char* name)
{
    SdBusMessage message = bus.methodCall(of.service, of.path, atspi::PropertiesInterface, "Get");
    if (message && sd_bus_message_append(message.get(), "ss", interface, name) < 0)
        message.reset();
    return message;
}

SdBusMessage indexed(SdBus& bus, const BusReference& of, const char* interface, const char* method,
                     std::int32_t index)
{
    SdBusMessage message = bus.methodCall(of.service, of.path, interface, method);
    if (message && sd_bus_message_append(message.get(), "i", index) < 0)
        message.reset();
    return message;
}

SdBusMessage extents(SdBus& bus, const BusReference& of)
{
    constexpr std::uint32_t OnTheScreen = 0;
    SdBusMessage message = bus.methodCall(of.service, of.path, atspi::ComponentInterface, "GetExtents");
    if (message && sd_bus_message_append(message.get(), "u", OnTheScreen) < 0)
        message.reset();
    return message;
}

SdBusMessage processIdentifierOf(SdBus& bus, const QByteArray& service)
{
    SdBusMessage message = bus.methodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                          "org.freedesktop.DBus", "GetConnectionUnixProcessID");
    if (message && sd_bus_message_append(message.get(), "s", service.constData()) < 0)
        message.reset();
    return message;
}

} // namespace

QByteArray AtspiBus::address(Deadline deadline)
{
    QByteArray given = qgetenv("AT_SPI_BUS_ADDRESS");
    if (!given.isEmpty())
        return given;
    const auto session = SdBus::open(SessionBus::address(), deadline);
    if (!session)
        return {};
    const SdBusMessage reply = session->call(
        session->methodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"), deadline);
    return reply ? atspi::decodeText(reply.get()).value_or(QString()).toUtf8() : QByteArray();
}

SdBus* AtspiBus::connection(Deadline deadline)
{
    if (SdBus* standing = standingConnection())
        return standing;
    if (_retry && !_retry->passed())
        return nullptr;
    const QByteArray address = AtspiBus::address(deadline);
    _bus = address.isEmpty() ? nullptr : SdBus::open(address, deadline);
    ++_connection;
    _retry = _bus ? std::nullopt : std::optional(Deadline::in(Pause));
    if (_bus && _connected)
        _connected(address);
    return _bus.get();
}

BusReference AtspiBus::root(const QByteArray& service) const
{
    return {service, atspi::RootPath, _connection};
}

bool AtspiBus::_stands(const BusReference& reference) const
{
    return reference && reference.connection == _connection && standingConnection();
}

SdBusMessage AtspiBus::_call(const BusReference& reference, AtspiQuestion question)
{
    using namespace atspi;
    if (!_stands(reference))
        return nullptr;
    switch (question) {
    case AtspiQuestion::Name:
        return property(*_bus, reference, AccessibleInterface, "Name");
    case AtspiQuestion::Role:
        return _bus->methodCall(reference.service, reference.path, AccessibleInterface, "GetRole");
    case AtspiQuestion::States:
        return stateCall(reference);
    case AtspiQuestion::KeyBinding:
        return indexed(*_bus, reference, ActionInterface, "GetKeyBinding", 0);
    case AtspiQuestion::Area:
        return extents(*_bus, reference);
    case AtspiQuestion::Toolkit:
        return property(*_bus, reference, ApplicationInterface, "ToolkitName");
    case AtspiQuestion::ChildCount:
        return property(*_bus, reference, AccessibleInterface, "ChildCount");
    case AtspiQuestion::FirstChild:
        return indexed(*_bus, reference, AccessibleInterface, "GetChildAtIndex", 0);
    case AtspiQuestion::Children:
        return _bus->methodCall(reference.service, reference.path, AccessibleInterface, "GetChildren");
    case AtspiQuestion::ProcessIdentifier:
        return processIdentifierOf(*_bus, reference.service);
    }
    return nullptr;
}

SdBusMessage AtspiBus::actionCall(const BusReference& reference)
{
    return _stands(reference) ? indexed(*_bus, reference, atspi::ActionInterface, "DoAction", 0) : nullptr;
}

SdBusMessage AtspiBus::stateCall(const BusReference& reference)
{
    if (!_stands(reference))
        return nullptr;
    return _bus->methodCall(reference.service, reference.path, atspi::AccessibleInterface, "GetState");
}

void AtspiBus::ask(const QList<AtspiInquiry>& inquiries, Deadline deadline)
{
    SdBus* bus = connection(deadline);
    if (!bus)
        return;
    bus->exchange(
        inquiries.size(),
        [&](qsizetype index) {
            const AtspiInquiry& inquiry = inquiries[index];
            return _call(inquiry.facts->reference, inquiry.question);
        },
        [&](qsizetype index, sd_bus_message* reply) {
            const AtspiInquiry& inquiry = inquiries[index];
            atspi::decodeAnswer(inquiry.question, reply, *inquiry.facts);
        },
        deadline);
}

QList<AtspiFacts> AtspiBus::childrenOf(QList<AtspiFacts>& parents, qsizetype maximum, Deadline deadline)
{
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& parent : parents)
        inquiries.append({&parent, AtspiQuestion::Children});
    ask(inquiries, deadline);

    QList<AtspiFacts> children;
    for (const AtspiFacts& parent : parents)
        for (const BusReference& reference : parent.children.value_or(QList<BusReference>()))
            if (children.size() < maximum)
                children.append({.reference = reference});
    return children;
}

AtspiFacts AtspiBus::facts(const BusReference& reference, std::initializer_list<AtspiQuestion> questions,
                           Deadline deadline)
{
    AtspiFacts facts;
    facts.reference = reference;
    QList<AtspiInquiry> inquiries;
    for (const AtspiQuestion question : questions)
        inquiries.append({&facts, question});
    ask(inquiries, deadline);
    return facts;
}

} // namespace tarnwick
