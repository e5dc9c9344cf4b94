// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"
#include "shortcut/SRError.h"

#include <optional>

namespace tarnwick {

/// The alert for an error that the user can only take note of: its description, its recovery suggestion and
/// the first of its recovery options as the only button. The suggestion is a format: "%%" in it shows as "%".
/// Without an error, the plain alert with the button "OK".
[[nodiscard]] Alert alertWithNonRecoverableError(const std::optional<SRError>& error);

} // namespace tarnwick
