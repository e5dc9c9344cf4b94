// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/gtk/GtkMenuNormalForm.h"
#include "platform/linux/menus/MenuSource.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QObject>
#include <QSet>

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

private:
    struct Reading;

    /// Reads the menus of the groups, and the actions that have not been asked for yet, in one go.
    void _read(Reading& reading, const QSet<quint32>& groups, Deadline deadline);
    [[nodiscard]] SdBusMessage _call(const Reading& reading, const char* interface, const char* member,
                                     const QByteArray& path);
    [[nodiscard]] SdBusMessage _groupCall(const Reading& reading, const char* member,
                                          const QSet<quint32>& groups);
    [[nodiscard]] SdBusMessage _actionCall(const MenuRow& row, const char* member);
    [[nodiscard]] SdBusMessage _activation(const MenuRow& row);

    SessionBus& _bus;
    ReadingBudget& _budget;
    QObject _presses; ///< owns those on their way
};

} // namespace tarnwick
