// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Whether the system starts this application at login, as later systems keep it.
enum class AppServiceStatus {
    NotRegistered = 0,
    Enabled = 1,
    RequiresApproval = 2, ///< registered, but the user has switched it off in the system's settings
    NotFound = 3,
};

/// Whether the system has this service at all: since macOS 13. Nothing else here may be called without it.
[[nodiscard]] bool hasAppService();
[[nodiscard]] AppServiceStatus appServiceStatus();
/// What goes wrong is not told.
void registerAppService();
void unregisterAppService();

} // namespace tarnwick
