// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace tarnwick {

/// The whole keyboard, held by an active grab on the window that has the focus (the root where none has), so
/// that no shortcut of the desktop acts on it. The window goes on receiving its keys. Destroying it gives the
/// keyboard back.
class X11KeyboardHold
{
public:
    /// Null when somebody else holds the keyboard or there is no X server.
    [[nodiscard]] static std::unique_ptr<X11KeyboardHold> take();
    ~X11KeyboardHold();
    X11KeyboardHold(const X11KeyboardHold&) = delete;
    X11KeyboardHold& operator=(const X11KeyboardHold&) = delete;

private:
    X11KeyboardHold() = default;
};

} // namespace tarnwick
