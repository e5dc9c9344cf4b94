// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <bitset>

namespace tarnwick {

class X11Connection;

/// One bit a key code: the keys that are down.
using X11Keys = std::bitset<256>;

/// What is down on the keyboard now: one round trip; nothing when it fails.
[[nodiscard]] X11Keys keysDown(X11Connection& connection);

} // namespace tarnwick
