// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/atspi/AtspiFacts.h"

namespace tarnwick {

/// Which of an application's accessible windows a window of the desktop is.
struct AtspiWindowMatch
{
    /// Whether it would be the same one a moment later: titles and the active state lag behind a switch.
    enum class Certainty {
        Never,
        OnceSettled, ///< it is the only one, but its name does not tell: it may be another's that is about to
                     ///< go
        Now
    };

    BusReference window;
    Certainty certainty = Certainty::Never;

    /// `windows` with names and states; `title` of the wanted one, which is the desktop's active one or not.
    /// Nothing when none of them can be told to be it.
    [[nodiscard]] static std::optional<AtspiWindowMatch>
    among(const QList<AtspiFacts>& windows, const std::optional<QString>& title, bool active);
};

} // namespace tarnwick
