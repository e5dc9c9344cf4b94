// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MenuPress.h"

#include <utility>

namespace tarnwick {

namespace {

bool sendPress(const MenuPressCalls& calls)
{
    SdBus* connection = calls.connection();
    return connection && connection->send(calls.press());
}

} // namespace

bool MenuPress::start(const MenuPressCalls& calls, bool enabled, QObject* parent)
{
    return enabled ? startOnceAnswered(calls, Patience, parent) : sendPress(calls);
}

bool MenuPress::startOnceAnswered(const MenuPressCalls& calls, std::chrono::milliseconds most,
                                  QObject* parent)
{
    if (!calls.connection())
        return false;
    (new MenuPress(calls, most, parent))->_look();
    return true;
}

MenuPress::MenuPress(const MenuPressCalls& calls, std::chrono::milliseconds forTheFirstAnswer,
                     QObject* parent)
    : QObject(parent), _calls(calls), _forAnAnswer(forTheFirstAnswer)
{
    _step.setSingleShot(true);
    _step.setInterval(Step);
    _step.setTimerType(Qt::PreciseTimer);
    connect(&_step, &QTimer::timeout, this, &MenuPress::_look);
    _patience.setSingleShot(true);
    connect(&_patience, &QTimer::timeout, this, &MenuPress::_send);
    _patience.start(_forAnAnswer);
}

void MenuPress::_look()
{
    if (SdBus* connection = _calls.connection())
        _question = connection->sendWithReply(_calls.question(), Deadline::in(_forAnAnswer),
                                              [this](sd_bus_message* answer) { _judge(answer); });
    if (!_question)
        _send();
}

void MenuPress::_judge(sd_bus_message* answer)
{
    if (!answer || !_calls.saysDisabled(answer)) {
        _send();
        return;
    }
    if (std::exchange(_forAnAnswer, Patience) != Patience)
        _patience.start(Patience);
    _step.start();
}

void MenuPress::_send()
{
    _question.reset();
    _step.stop();
    _patience.stop();
    sendPress(_calls);
    deleteLater();
}

} // namespace tarnwick

#include "moc_MenuPress.cpp"
