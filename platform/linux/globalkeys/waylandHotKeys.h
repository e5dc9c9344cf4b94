// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/GlobalHotKeys.h"

#include <memory>

namespace tarnwick {

/// The way to hot keys that this session offers: Plasma's service, the desktop portal, or else the lines of
/// its compositor's configuration. `address` is that of the bus. Waits for the bus 2 s at most.
[[nodiscard]] std::unique_ptr<GlobalHotKeys>
waylandHotKeys(const QDBusConnection& bus, const QString& address, GlobalHotKeys::Session session);

} // namespace tarnwick
