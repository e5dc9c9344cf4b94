// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiActiveWindow.h"

#include "platform/linux/atspi/AtspiConstants.h"

namespace tarnwick {

AtspiWindow AtspiActiveWindow::current()
{
    const ReadingBudget::Reading reading(_budget);
    const auto roots = _applications.roots(reading.deadline()).value_or(QList<BusReference>());
    const auto windows = _applications.windowsOf(roots, reading.deadline());
    for (const AtspiFacts& window : windows) {
        if (window.states && atspi::has(*window.states, atspi::StateActive))
            return {window.reference, _applications.processOf(window.reference)};
    }
    return {};
}

} // namespace tarnwick
