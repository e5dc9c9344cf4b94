// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/gtk/GtkMenuNormalForm.h"
#include "platform/linux/menus/MenuSource.h"
#include "platform/linux/menus/MenusAhead.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QObject>
#include <QSet>

#include <utility>

namespace tarnwick {

/// Menus that a window exports on the session bus as "org.gtk.Menus", with their actions as
/// "org.gtk.Actions". An exporter counts who looks at its menus: each look is ended at once.
class GtkMenuSource final : public MenuSource
{
public:
    /// Both must outlive this.
    GtkMenuSource(SessionBus& bus, ReadingBudget& budget) : _bus(bus), _budget(budget) {}

    /// A reference to the menu at `place` that the program `service` exports; empty when the bus cannot be
    /// reached.
    [[nodiscard]] BusReference reference(const QByteArray& service, const GtkMenuPlace& place);

    std::optional<QList<MenuRow>> readBar(const BusReference& bar) override;
    std::optional<QList<MenuRow>> readMenu(const BusReference& contents) override;
    bool press(const MenuRow& row) override;
    [[nodiscard]] bool isDisabledNow(const MenuRow& row, Deadline deadline) override;

    /// Whether the bar is told to have no entry now. Who reads it a moment later does not wait for it again.
    [[nodiscard]] bool isEmpty(const BusReference& bar);

    /// Looks at every menu below `bar` once, for `most` at most, since some programs make what a menu holds
    /// only when somebody does. Nothing of it is to be seen. False when there was not the time to look at
    /// all.
    bool lookAtAll(const BusReference& bar, std::chrono::milliseconds most);

    void readAhead(const QByteArray& service, std::chrono::milliseconds most) override;

private:
    struct Reading;
    struct JustRead
    {
        BusReference bar;
        QList<MenuRow> rows;
        Deadline until;
    };

    using Place = std::pair<BusReference, GtkMenuPlace>; ///< of a menu

    /// Those that can be read.
    [[nodiscard]] QList<Place> _placesOf(const QList<BusReference>& menus) const;
    [[nodiscard]] std::optional<QList<MenuRow>> _readNow(const BusReference& menu);
    /// An answer for each of these menus.
    [[nodiscard]] MenusAhead::Answers _readLevel(Reading& reading, const QList<BusReference>& menus,
                                                 Deadline deadline);
    /// Reads these menus with their sections, all in one go where no section is in another group.
    void _readMenus(Reading& reading, const QList<Place>& places, Deadline deadline);
    /// Reads the menus of the groups, and the actions that have not been asked for yet, in one go.
    void _read(Reading& reading, const QSet<quint32>& groups, Deadline deadline);
    /// The same with these actions.
    void _look(Reading& reading, const QSet<quint32>& groups, const QByteArrayList& actions,
               Deadline deadline);
    [[nodiscard]] SdBusMessage _call(const Reading& reading, const char* interface, const char* member,
                                     const QByteArray& path);
    [[nodiscard]] SdBusMessage _groupCall(const Reading& reading, const char* member,
                                          const QSet<quint32>& groups);
    [[nodiscard]] SdBusMessage _actionCall(const MenuRow& row, const char* member);
    [[nodiscard]] SdBusMessage _activation(const MenuRow& row);

    SessionBus& _bus;
    ReadingBudget& _budget;
    std::optional<JustRead> _justRead;
    MenusAhead _ahead;
    QObject _presses; ///< owns those on their way
};

} // namespace tarnwick
