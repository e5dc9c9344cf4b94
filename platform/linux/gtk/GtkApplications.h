// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusObject.h"
#include "platform/linux/bus/SessionBus.h"
#include "platform/linux/menus/ReadingBudget.h"

#include <QHash>

#include <optional>

namespace tarnwick {

/// What a program of GTK has on the session bus.
struct GtkApplication
{
    QByteArray service;     ///< the name of its connection, which no other ever bears
    QByteArray path;        ///< object path; its menu bar and its windows are below
    QList<quint32> windows; ///< its windows' numbers, in the order in which they were made
    bool exportsMenuBar = false;

    [[nodiscard]] QByteArray menuBarPath() const { return path + "/menus/menubar"; }
    [[nodiscard]] QByteArray windowPath(quint32 number) const
    {
        return path + "/window/" + QByteArray::number(number);
    }
};

/// Finds programs of GTK on the session bus by their processes, for windows that no X server knows and that
/// therefore cannot say what they export. Only asks what objects there are. GUI thread only.
class GtkApplications
{
public:
    /// Both must outlive this.
    GtkApplications(SessionBus& bus, ReadingBudget& budget) : _bus(bus), _budget(budget) {}

    /// As it is now; nothing when the process has no such program on the bus, or does not answer in time.
    [[nodiscard]] std::optional<GtkApplication> of(qint64 processIdentifier);

private:
    struct Place
    {
        QByteArray service;
        QByteArray path;
        std::optional<Deadline> until; ///< of a process that is no such program: it may yet become one

        explicit operator bool() const { return !path.isEmpty(); }
    };

    [[nodiscard]] Place _placeOf(qint64 processIdentifier, Deadline deadline);
    [[nodiscard]] Place _search(qint64 processIdentifier, Deadline deadline);
    [[nodiscard]] QByteArray _applicationPath(const QByteArray& service, Deadline deadline);
    /// Of the objects that answer, by their paths.
    [[nodiscard]] QHash<QByteArray, BusObject> _look(const QByteArray& service, const QByteArrayList& paths,
                                                     Deadline deadline);

    SessionBus& _bus;
    ReadingBudget& _budget;
    QHash<qint64, Place> _places; ///< by process, on the connection of that number
    int _connection = 0;
};

} // namespace tarnwick
