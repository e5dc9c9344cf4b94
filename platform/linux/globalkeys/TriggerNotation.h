// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/Compositor.h"
#include "platform/linux/globalkeys/TriggerKey.h"

#include <QString>

#include <optional>

/// How hot keys and mouse buttons are written down for others to bind.
namespace tarnwick::trigger_notation {

/// What opens the menu, for a shell.
[[nodiscard]] QString popUpCommand();

/// For the desktop portal: "CTRL+ALT+z".
[[nodiscard]] QString portalTrigger(const TriggerKey& key);

/// What a compositor's configuration needs.
struct Line
{
    QString text;  ///< one line or more
    QString place; ///< the file, and where in it
};

/// Nothing for compositors whose configuration is not known.
[[nodiscard]] std::optional<Line> lineFor(Compositor compositor, const TriggerKey& key);

/// The same for the mouse button with this number: 2 is the middle one, 3 and more those at the side. Nothing
/// also where the compositor cannot bind buttons, or not this one.
[[nodiscard]] std::optional<Line> lineForButton(Compositor compositor, quint64 button);

} // namespace tarnwick::trigger_notation
