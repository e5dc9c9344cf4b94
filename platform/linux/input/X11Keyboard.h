// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/XcbAnswer.h"

#include <bitset>

namespace tarnwick {

/// One bit a key code: the keys that are down.
using X11Keys = std::bitset<256>;

/// What is down on the keyboard. The constructor sends the question.
class X11KeysQuestion
{
public:
    explicit X11KeysQuestion(X11Connection& connection);

    /// None when the server refuses. To be called once.
    [[nodiscard]] X11Keys answer();

private:
    XcbAnswer<&xcb_query_keymap_reply> _answer;
};

/// What is down on the keyboard now: one round trip.
[[nodiscard]] X11Keys keysDown(X11Connection& connection);

} // namespace tarnwick
