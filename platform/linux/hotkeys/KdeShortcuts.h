// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/hotkeys/DesktopShortcut.h"

#include <QByteArray>

namespace tarnwick {

/// The global shortcuts in a kglobalshortcutsrc: those that are active, with their alternatives. Lines that
/// are none are left out.
[[nodiscard]] QList<DesktopShortcut> parseKdeShortcuts(const QByteArray& contents);

} // namespace tarnwick
