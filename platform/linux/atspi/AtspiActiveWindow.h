// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/menus/ReadingBudget.h"

namespace tarnwick {

/// A window of an application by its place in the accessibility tree. A default-made one is none.
struct AtspiWindow
{
    BusReference reference;
    std::optional<qint64> processIdentifier;

    explicit operator bool() const { return bool(reference); }
};

/// Which window is in front by the word of the applications themselves, for sessions in which the X server
/// does not know of all windows. GUI thread only.
class AtspiActiveWindow
{
public:
    /// Both must outlive this.
    AtspiActiveWindow(AtspiApplications& applications, ReadingBudget& budget)
        : _applications(applications), _budget(budget)
    {
    }

    /// None when no other process says that it has the active window. Programs that do not answer in time are
    /// not waited for. Where the process is known, only a window of that one will do, or the active one that
    /// has this title: behind the bus of a sandbox processes have other numbers.
    [[nodiscard]] AtspiWindow current(std::optional<qint64> processIdentifier = {},
                                      const std::optional<QString>& title = {});

    /// Whether that window says by the deadline that it is not.
    [[nodiscard]] bool isInactive(const BusReference& window, Deadline deadline);

private:
    [[nodiscard]] AtspiWindow _windowOf(qint64 processIdentifier, const std::optional<QString>& title,
                                        const QList<AtspiFacts>& windows) const;
    [[nodiscard]] AtspiWindow _foundAs(const BusReference& window) const;

    AtspiApplications& _applications;
    ReadingBudget& _budget;
};

} // namespace tarnwick
