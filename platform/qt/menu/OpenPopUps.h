// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Closes each pop-up of the toolkit that is open, the innermost first.
void closeAllPopUps();

} // namespace tarnwick
