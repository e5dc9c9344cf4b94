// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"

/// What all mouse-button controls of the process share: the tap that was made last, and what it saw.
namespace tarnwick::mouse_button_identifier {

inline EventTapRef eventTap = 0;
/// Type of the last event that the tap saw, or the number by which the system told that it switched it off.
inline quint64 mouseCode = 0;

} // namespace tarnwick::mouse_button_identifier
