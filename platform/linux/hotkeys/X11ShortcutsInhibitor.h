// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/input/X11KeyboardGrab.h"

namespace tarnwick {

/// Keeps the desktop's shortcuts from the keys by holding the whole keyboard, while one of our windows has
/// the focus. GUI thread only.
class X11ShortcutsInhibitor
{
public:
    X11ShortcutsInhibitor();

    /// False when none of our windows has the focus, or somebody else has the keyboard.
    [[nodiscard]] bool take();
    void release();

private:
    X11KeyboardGrab _keyboard;
};

} // namespace tarnwick
