// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBus.h"

#include <QObject>
#include <QTimer>

namespace tarnwick {

/// The messages of one press. They are made anew each time, since the connection may go meanwhile; null then.
struct MenuPressCalls
{
    std::function<SdBus*()> connection; ///< null when there is none now
    std::function<SdBusMessage()> question;
    std::function<bool(sd_bus_message*)> saysDisabled; ///< the answer to the question
    std::function<SdBusMessage()> press;
};

/// One press of a menu item of another application: sent exactly once, no answer waited for. An item that
/// could be chosen in the menu but reads disabled now gets up to 0.25 s to come back, because an application
/// that lost the keyboard to our menu enables its items a moment after it has it again. GUI thread only.
class MenuPress : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds Step{10};
    static constexpr std::chrono::milliseconds Patience{250};

    /// The press takes its course in the event loop and then deletes itself; of an item that was not enabled
    /// in the menu it is sent at once. False, and nothing is sent, without a connection. What the calls use
    /// must outlive `parent`.
    static bool start(const MenuPressCalls& calls, bool enabled, QObject* parent);
    /// The same for what must not be pressed before the application has said what it is: it has so much time
    /// for its first answer. Without one the press is made anew as ever, and may then be none.
    static bool startOnceAnswered(const MenuPressCalls& calls, std::chrono::milliseconds most,
                                  QObject* parent);

private:
    MenuPress(const MenuPressCalls& calls, std::chrono::milliseconds forTheFirstAnswer, QObject* parent);
    void _look();
    void _judge(sd_bus_message* answer);
    void _send();

    MenuPressCalls _calls;
    std::chrono::milliseconds _forAnAnswer;
    SdBusSlot _question;
    QTimer _step;
    QTimer _patience;
};

} // namespace tarnwick
