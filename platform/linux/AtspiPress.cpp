// SPDX-License-Identifier: MIT
#include "platform/linux/AtspiPress.h"

#include "platform/linux/AtspiConstants.h"
#include "platform/linux/AtspiDecode.h"

namespace tarnwick {

namespace {

bool sendAction(AtspiBus& bus, const BusReference& item)
{
    SdBus* connection = bus.standingConnection();
    return connection && connection->send(bus.actionCall(item));
}

} // namespace

bool AtspiPress::start(AtspiBus& bus, const MenuRow& row, QObject* parent)
{
    if (!row.enabled)
        return sendAction(bus, row.item);
    if (!bus.standingConnection())
        return false;
    (new AtspiPress(bus, row.item, parent))->_look();
    return true;
}

AtspiPress::AtspiPress(AtspiBus& bus, const BusReference& item, QObject* parent)
    : QObject(parent), _bus(bus), _item(item)
{
    _step.setSingleShot(true);
    _step.setInterval(Step);
    _step.setTimerType(Qt::PreciseTimer);
    connect(&_step, &QTimer::timeout, this, &AtspiPress::_look);
    _patience.setSingleShot(true);
    connect(&_patience, &QTimer::timeout, this, &AtspiPress::_send);
    _patience.start(Patience);
}

void AtspiPress::_look()
{
    SdBus* connection = _bus.standingConnection();
    if (connection)
        _question = connection->sendWithReply(_bus.stateCall(_item), Deadline::in(Patience),
                                              [this](sd_bus_message* reply) { _judge(reply); });
    if (!_question)
        _send();
}

void AtspiPress::_judge(sd_bus_message* states)
{
    const auto words = states ? atspi::decodeStates(states) : std::nullopt;
    if (!words || atspi::has(*words, atspi::StateSensitive) || atspi::has(*words, atspi::StateEnabled))
        _send();
    else
        _step.start();
}

void AtspiPress::_send()
{
    _question.reset();
    _step.stop();
    _patience.stop();
    sendAction(_bus, _item);
    deleteLater();
}

} // namespace tarnwick
