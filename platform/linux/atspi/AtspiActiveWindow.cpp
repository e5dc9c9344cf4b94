// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiActiveWindow.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiWindowMatch.h"

#include <algorithm>

namespace tarnwick {

namespace {

/// Null when none of them is active.
const AtspiFacts* firstActive(const QList<AtspiFacts>& windows, const std::optional<QString>& title)
{
    const auto found = std::ranges::find_if(windows, [&title](const AtspiFacts& window) {
        return window.states && atspi::has(*window.states, atspi::StateActive) &&
               (!title || window.name == title);
    });
    return found == windows.cend() ? nullptr : &*found;
}

} // namespace

AtspiWindow AtspiActiveWindow::current(std::optional<qint64> processIdentifier,
                                       const std::optional<QString>& title)
{
    const ReadingBudget::Reading reading(_budget);
    const auto roots = _applications.roots(reading.deadline()).value_or(QList<BusReference>());
    const auto windows = _applications.windowsOf(roots, reading.deadline());
    if (processIdentifier)
        return _windowOf(*processIdentifier, title, windows);
    const AtspiFacts* active = title ? firstActive(windows, title) : nullptr;
    if (!active)
        active = firstActive(windows, {});
    return active ? _foundAs(active->reference) : AtspiWindow();
}

AtspiWindow AtspiActiveWindow::_windowOf(qint64 processIdentifier, const std::optional<QString>& title,
                                         const QList<AtspiFacts>& windows) const
{
    QList<AtspiFacts> own = windows;
    own.removeIf([&](const AtspiFacts& window) {
        return _applications.processOf(window.reference) != processIdentifier;
    });
    if (!own.isEmpty()) {
        const auto match = AtspiWindowMatch::among(own, title, true);
        return match ? _foundAs(match->window) : AtspiWindow();
    }
    const AtspiFacts* active = title ? firstActive(windows, title) : nullptr;
    return active ? _foundAs(active->reference) : AtspiWindow();
}

AtspiWindow AtspiActiveWindow::_foundAs(const BusReference& window) const
{
    return {window, _applications.processOf(window)};
}

bool AtspiActiveWindow::isInactive(const BusReference& window, Deadline deadline)
{
    const auto states = _applications.statesOf(window, deadline);
    return states && !atspi::has(*states, atspi::StateActive);
}

} // namespace tarnwick
