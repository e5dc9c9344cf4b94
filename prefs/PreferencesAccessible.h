// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// From now on the window of the preferences, its toolbar, the program's picture and lines between groups
/// tell assistive programs what they are. May be called any number of times.
void installPreferencesAccessibles();

} // namespace tarnwick
