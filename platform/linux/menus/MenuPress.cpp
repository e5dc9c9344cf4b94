// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MenuPress.h"

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
    if (!enabled)
        return sendPress(calls);
    if (!calls.connection())
        return false;
    (new MenuPress(calls, parent))->_look();
    return true;
}

MenuPress::MenuPress(const MenuPressCalls& calls, QObject* parent) : QObject(parent), _calls(calls)
{
    _step.setSingleShot(true);
    _step.setInterval(Step);
    _step.setTimerType(Qt::PreciseTimer);
    connect(&_step, &QTimer::timeout, this, &MenuPress::_look);
    _patience.setSingleShot(true);
    connect(&_patience, &QTimer::timeout, this, &MenuPress::_send);
    _patience.start(Patience);
}

void MenuPress::_look()
{
    if (SdBus* connection = _calls.connection())
        _question = connection->sendWithReply(_calls.question(), Deadline::in(Patience),
                                              [this](sd_bus_message* answer) { _judge(answer); });
    if (!_question)
        _send();
}

void MenuPress::_judge(sd_bus_message* answer)
{
    if (answer && _calls.saysDisabled(answer))
        _step.start();
    else
        _send();
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
