// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/AtspiBus.h"
#include "platform/linux/MenuRow.h"

#include <QObject>
#include <QTimer>

namespace tarnwick {

/// One press of a menu item of another application: sent exactly once, no answer waited for. An item that
/// could be chosen in the menu but reads disabled now gets up to 0.25 s to come back, because an application
/// that lost the keyboard to our menu enables its items a moment after it has it again. GUI thread only.
class AtspiPress : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds Step{10};
    static constexpr std::chrono::milliseconds Patience{250};

    /// The press takes its course in the event loop and then deletes itself. False, and nothing is sent,
    /// without the accessibility bus. The bus must outlive `parent`.
    static bool start(AtspiBus& bus, const MenuRow& row, QObject* parent);

private:
    AtspiPress(AtspiBus& bus, const BusReference& item, QObject* parent);
    void _look();
    void _judge(sd_bus_message* states);
    void _send();

    AtspiBus& _bus;
    BusReference _item;
    SdBusSlot _question;
    QTimer _step;
    QTimer _patience;
};

} // namespace tarnwick
