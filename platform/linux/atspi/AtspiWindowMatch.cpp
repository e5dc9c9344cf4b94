// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiWindowMatch.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <algorithm>

namespace tarnwick {

std::optional<AtspiWindowMatch> AtspiWindowMatch::among(const QList<AtspiFacts>& windows,
                                                        const std::optional<QString>& title, bool active)
{
    if (windows.size() == 1) {
        // Programs may append to the title what the accessible name does not have.
        const QString name = windows.first().name.value_or(QString());
        const bool tells = !name.isEmpty() && title && title->startsWith(name);
        return AtspiWindowMatch{windows.first().reference, tells ? Certainty::Now : Certainty::OnceSettled};
    }
    QList<AtspiFacts> named = windows;
    named.removeIf([&](const AtspiFacts& facts) { return !title || facts.name != title; });
    if (named.size() == 1)
        return AtspiWindowMatch{named.first().reference, Certainty::Now};

    const QList<AtspiFacts>& candidates = named.isEmpty() ? windows : named;
    const auto isActive = [](const AtspiFacts& facts) {
        return facts.states && atspi::has(*facts.states, atspi::StateActive);
    };
    const auto found = std::find_if(candidates.cbegin(), candidates.cend(), isActive);
    if (active && found != candidates.cend())
        return AtspiWindowMatch{found->reference, Certainty::Never};
    if (named.isEmpty())
        return std::nullopt;
    return AtspiWindowMatch{named.first().reference, Certainty::Never};
}

} // namespace tarnwick
