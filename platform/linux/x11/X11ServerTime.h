// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

namespace tarnwick {

/// The X server's time now, as input events carry it; XCB_CURRENT_TIME without a server. It is asked over a
/// short connection of its own: on Qt's, the answer would be one of Qt's events.
[[nodiscard]] xcb_timestamp_t x11ServerTime();

} // namespace tarnwick
