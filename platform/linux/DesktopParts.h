// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "app/Inspection.h"
#include "platform/linux/elements/LinuxReading.h"
#include "platform/qt/application/QtEventConverter.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

class XkbKeymap;

/// Composes the desktop of an X server.
[[nodiscard]] Desktop openX11Desktop(int& argc, char** argv);
/// Composes that of a Wayland compositor; nothing where there is none, or none on which a menu can be shown,
/// and in a program that was built without.
[[nodiscard]] std::optional<Desktop> openWaylandDesktop(int& argc, char** argv);

/// Whether there is a compositor on which a menu can be shown; nothing in a program that was built without.
[[nodiscard]] std::optional<bool> canRunOnWayland();

/// Composes what reading menus needs in the session of a Wayland compositor, where the program itself would
/// run on it; nothing else.
[[nodiscard]] std::optional<Inspection> openWaylandInspection(int& argc, char** argv);
/// The same on any platform of the toolkit.
[[nodiscard]] Inspection makeInspection(int argc, char** argv, const QByteArray& platform,
                                        const LinuxReading::MakeFront& makeFront);

/// Converts the toolkit's events by the map that types now.
[[nodiscard]] QtEventConverter
makeEventConverter(const std::function<std::shared_ptr<const XkbKeymap>()>& keymap);

/// Of the icon that the desktop's host of status items draws in the colours of its panel. Nothing where it
/// would draw it as it is, which may be dark on dark, or does not find it and leaves its place empty.
[[nodiscard]] QString symbolicIconName();

} // namespace tarnwick
