// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiBus.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"
#include "platform/linux/bus/SdBus.h"
#include "platform/linux/bus/SessionBus.h"

namespace tarnwick {

using namespace atspi;

namespace {

/// Null when the message does not take the arguments.
template <typename... Arguments>
SdBusMessage filled(SdBusMessage message, const char* types, Arguments... arguments)
{
    if (message && sd_bus_message_append(message.get(), types, arguments...) < 0)
        message.reset();
    return message;
}

SdBusMessage questionCall(SdBus& bus, const BusReference& of, const AtspiQuestionForm& form)
{
    using Kind = AtspiQuestionForm::Kind;
    constexpr std::int32_t First = 0;
    constexpr std::uint32_t OnTheScreen = 0;
    const auto call = [&] { return bus.methodCall(of.service, of.path, form.interface, form.member); };
    switch (form.kind) {
    case Kind::Property:
        return filled(bus.methodCall(of.service, of.path, PropertiesInterface, "Get"), "ss", form.interface,
                      form.member);
    case Kind::Call:
        return call();
    case Kind::CallOfFirst:
        return filled(call(), "i", First);
    case Kind::CallOnTheScreen:
        return filled(call(), "u", OnTheScreen);
    case Kind::CallToTheBus:
        return filled(
            bus.methodCall("org.freedesktop.DBus", "/org/freedesktop/DBus", form.interface, form.member), "s",
            of.service.constData());
    }
    return nullptr;
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
    return reply ? decodeText(reply.get()).value_or(QString()).toUtf8() : QByteArray();
}

BusReference AtspiBus::root(const QByteArray& service) const
{
    return {service, RootPath, number()};
}

SdBusMessage AtspiBus::_call(const BusReference& reference, AtspiQuestion question)
{
    if (!stands(reference))
        return nullptr;
    return questionCall(*standingConnection(), reference, formOf(question));
}

SdBusMessage AtspiBus::actionCall(const BusReference& reference)
{
    if (!stands(reference))
        return nullptr;
    constexpr std::int32_t First = 0;
    return filled(
        standingConnection()->methodCall(reference.service, reference.path, ActionInterface, "DoAction"), "i",
        First);
}

SdBusMessage AtspiBus::stateCall(const BusReference& reference)
{
    return _call(reference, AtspiQuestion::States);
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
            formOf(inquiry.question).store(reply, *inquiry.facts);
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
