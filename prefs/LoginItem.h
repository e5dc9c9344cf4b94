// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace tarnwick {

/// Adds `applicationUrl` at the top of the user's login items unless it is among them, or removes the first
/// entry for it. Entries that cannot be resolved are left alone.
void setLoginItemEnabled(const QUrl& applicationUrl, bool enabled);

} // namespace tarnwick
