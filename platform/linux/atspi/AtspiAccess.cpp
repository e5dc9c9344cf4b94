// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiAccess.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiDecode.h"
#include "platform/linux/bus/SdBus.h"
#include "platform/linux/bus/SessionBus.h"

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

constexpr auto Limit = 5s;

SdBusMessage statusCall(SdBus& session, const char* method)
{
    SdBusMessage message =
        session.methodCall("org.a11y.Bus", "/org/a11y/bus", atspi::PropertiesInterface, method);
    if (message && sd_bus_message_append(message.get(), "ss", "org.a11y.Status", "IsEnabled") < 0)
        message.reset();
    return message;
}

} // namespace

bool AtspiAccess::open()
{
    const Deadline deadline = Deadline::in(Limit);
    _granted = _bus.connection(deadline) && _applications.roots(deadline) && _switchOn(deadline);
    return *_granted;
}

bool AtspiAccess::granted()
{
    return _granted ? *_granted : open();
}

bool AtspiAccess::_switchOn(Deadline deadline)
{
    const auto session = SdBus::open(SessionBus::address(), deadline);
    if (!session)
        return false;
    const SdBusMessage status = session->call(statusCall(*session, "Get"), deadline);
    if (status && atspi::decodeFlagProperty(status.get()).value_or(false))
        return true;
    SdBusMessage change = statusCall(*session, "Set");
    if (!change || sd_bus_message_append(change.get(), "v", "b", 1) < 0)
        return false;
    return session->call(std::move(change), deadline) != nullptr;
}

} // namespace tarnwick
