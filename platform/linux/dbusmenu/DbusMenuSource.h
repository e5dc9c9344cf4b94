// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/menus/MenuSource.h"
#include "platform/linux/menus/MenusAhead.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QObject>

namespace tarnwick {

/// Menus that a program exports on the session bus as "com.canonical.dbusmenu". Entries are told apart by
/// numbers, which may be others' by the time they are used: where one stands for another entry, or for none,
/// the entry is looked for once by the titles that lead to it. Nothing is kept of what menus hold, so what
/// the program tells of their changes is not listened to. What the program does not say to be the entry that
/// was chosen is not pressed. GUI thread only.
class DbusMenuSource final : public MenuSource
{
public:
    /// Both must outlive this.
    DbusMenuSource(SessionBus& bus, ReadingBudget& budget) : _bus(bus), _budget(budget) {}

    /// A reference to the menu bar that the program `service` exports at `path`; empty when the bus cannot be
    /// reached.
    [[nodiscard]] BusReference reference(const QByteArray& service, const QByteArray& path);

    /// Whether the bar is told to have an entry now. Who reads it a moment later does not wait for it again.
    [[nodiscard]] bool hasEntries(const BusReference& bar);

    std::optional<QList<MenuRow>> readBar(const BusReference& bar) override;
    std::optional<QList<MenuRow>> readMenu(const BusReference& contents) override;
    void readAhead(const QByteArray& service, std::chrono::milliseconds most) override;
    bool press(const MenuRow& row) override;
    [[nodiscard]] bool isDisabledNow(const MenuRow& row, Deadline deadline) override;

private:
    struct Press;
    struct JustRead
    {
        BusReference bar;
        QList<MenuRow> rows;
        Deadline until;
    };

    /// As it is now; nothing when its number stands for another entry.
    [[nodiscard]] std::optional<QList<MenuRow>> _read(const BusReference& menu, Deadline deadline);
    /// The only entry to which the same titles lead now; empty when there is none.
    [[nodiscard]] BusReference _foundAgain(const BusReference& item, Deadline deadline);
    [[nodiscard]] SdBusMessage _call(const BusReference& menu, const char* member);
    [[nodiscard]] SdBusMessage _aboutToShow(const BusReference& menu);
    [[nodiscard]] SdBusMessage _closed(const BusReference& menu);
    [[nodiscard]] SdBusMessage _layoutCall(const BusReference& menu);
    [[nodiscard]] SdBusMessage _question(const BusReference& item);
    [[nodiscard]] SdBusMessage _questionOf(Press& press);
    [[nodiscard]] SdBusMessage _click(const BusReference& item, quint32 time);

    SessionBus& _bus;
    ReadingBudget& _budget;
    std::optional<JustRead> _justRead;
    MenusAhead _ahead;
    QObject _presses; ///< owns those on their way
};

} // namespace tarnwick
