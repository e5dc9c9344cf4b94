// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/menus/ReadingBudget.h"
#include "platform/linux/x11/X11Windows.h"
#include "platform/linux/xdg/DesktopEntries.h"

#include <QHash>

namespace tarnwick {

/// The one name by which everything calls an application: that of its desktop entry, else the one that it
/// gives itself on the accessibility bus, else its program's. GUI thread only.
class ApplicationNames
{
public:
    /// All must outlive this.
    ApplicationNames(AtspiBus& bus, AtspiApplications& applications, X11Windows& windows,
                     ReadingBudget& budget);

    /// Empty when there is no such process.
    [[nodiscard]] QString of(qint64 processIdentifier);

private:
    struct Known
    {
        QByteArray startTime; ///< tells the process from a later one with the same number
        QString name;
    };

    [[nodiscard]] QString _entryName(qint64 processIdentifier);
    [[nodiscard]] QString _accessibleName(qint64 processIdentifier);

    AtspiBus& _bus;
    AtspiApplications& _applications;
    X11Windows& _windows;
    ReadingBudget& _budget;
    DesktopEntries _entries;
    QHash<qint64, Known> _known;
};

} // namespace tarnwick
