// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbusmenu/DbusMenuSource.h"

#include <QHash>
#include <xcb/xproto.h>

#include <optional>

namespace tarnwick {

/// Finds the menu bar that a program exports for one of its windows, by the word of whoever collects such
/// bars on this desktop. That name is never ours: programs hide the bar in their windows when it is there.
/// GUI thread only.
class DbusMenuBars
{
public:
    /// All must outlive this.
    DbusMenuBars(SessionBus& bus, ReadingBudget& budget, DbusMenuSource& source)
        : _bus(bus), _budget(budget), _source(source)
    {
    }

    /// Empty when nobody has collected one of the window. Whether it can be read is not tried.
    [[nodiscard]] BusReference ofWindow(xcb_window_t window);
    /// The only one that the process exports where programs do so unasked; empty when there are several, of
    /// which nobody says whose they are.
    [[nodiscard]] BusReference ofProcess(qint64 processIdentifier);

    /// The one that a program says to export there; empty when it makes no sense that it is there.
    [[nodiscard]] BusReference at(const QByteArray& service, const QByteArray& path);

private:
    struct Exporter
    {
        QByteArrayList connections;    ///< of the process, none unless one exports something
        std::optional<Deadline> until; ///< of a process that exports nothing: it may yet do so
    };

    [[nodiscard]] QByteArrayList _connectionsOf(qint64 processIdentifier, Deadline deadline);

    SessionBus& _bus;
    ReadingBudget& _budget;
    DbusMenuSource& _source;
    QHash<qint64, Exporter> _exporters; ///< by process, on the connection of that number
    int _connection = 0;
    std::optional<Deadline> _silentUntil; ///< the collector, which did not answer
};

} // namespace tarnwick
