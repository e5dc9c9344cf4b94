// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"

/// What QMMouseHotKey and its tap's callback share: one per process.
namespace tarnwick::mouse_hot_key {

inline EventTapRef eventTapM = 0;
inline quint64 mouse = 0; ///< type of the last event that the callback saw
[[maybe_unused]] inline const TappedEvent* mouseEvent = nullptr;

} // namespace tarnwick::mouse_hot_key
