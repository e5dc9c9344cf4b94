// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/Deadline.h"
#include "platform/linux/menus/MenuRow.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <optional>

namespace tarnwick {

/// The menus of one bar that have been read before our menu opens, as long as it is open. GUI thread only.
class MenusAhead
{
public:
    /// Nothing of one that could not be read.
    using Answers = QList<std::optional<QList<MenuRow>>>;
    /// An answer for each of these menus.
    using Read = std::function<Answers(const QList<BusReference>& menus)>;

    MenusAhead();

    /// The bar that was read last, and what is in it.
    void setBar(const BusReference& bar, const QList<MenuRow>& rows);
    /// Reads the menus below that bar, if `service` has it, level by level. A level that is not read when the
    /// deadline passes is left out, since something may be missing in it.
    void read(const QByteArray& service, Deadline deadline, const Read& readLevel);
    /// Null when it has not been read.
    [[nodiscard]] const QList<MenuRow>* of(const BusReference& menu) const;

private:
    QByteArray _service;
    QList<BusReference> _menusOfBar;
    QHash<BusReference, QList<MenuRow>> _read;
    QObject _untilEnded;
};

} // namespace tarnwick
