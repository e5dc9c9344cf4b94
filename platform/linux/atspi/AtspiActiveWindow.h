// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/menus/ReadingBudget.h"
#include "platform/linux/x11/X11Windows.h"

namespace tarnwick {

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

    /// A window by its place in the accessibility tree; none when no other process says that it has the
    /// active one. Programs that do not answer in time are not waited for.
    [[nodiscard]] FrontWindow current();

private:
    AtspiApplications& _applications;
    ReadingBudget& _budget;
};

} // namespace tarnwick
