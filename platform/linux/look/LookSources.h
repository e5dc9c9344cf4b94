// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/look/XSettingsDecode.h"
#include "platform/qt/application/Look.h"

namespace tarnwick {

/// What desktops made with GTK tell all X clients: a theme by its name, a font, whether things move.
[[nodiscard]] Look lookOfXSettings(const XSettingValues& values);

/// What KDE writes into its files "kdeglobals". `layers` are their contents, that of most weight first.
[[nodiscard]] Look lookOfKdeGlobals(const QList<QByteArray>& layers);

/// Which of the two a person prefers in all programs.
enum class ColorScheme { NoPreference, Light, Dark };
/// The look with a preference that has been told besides; colours for high contrast stay as they are.
[[nodiscard]] Look withColorScheme(Look look, ColorScheme scheme);

/// A font as GTK writes it: "Noto Sans Bold 11". Nothing without a family.
[[nodiscard]] std::optional<QFont> fontOfGtk(const QString& description);

} // namespace tarnwick
