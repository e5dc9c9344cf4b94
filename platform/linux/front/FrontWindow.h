// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/front/ExportedMenuBar.h"

#include <xcb/xcb.h>

#include <optional>

namespace tarnwick {

/// The application window that has the user's attention. A default-made one is none.
struct FrontWindow
{
    xcb_window_t window = XCB_WINDOW_NONE; ///< none of the X server's where the window is a native one
    std::optional<qint64> processIdentifier;
    BusReference accessible =
        {}; ///< of a native window: its place in the accessibility tree, where it has one
    ExportedMenuBar menuBar = {}; ///< of a native window, where the compositor has been told of one

    /// Whether it is a window of a Wayland compositor's own, which no X server knows.
    [[nodiscard]] bool isNative() const { return window == XCB_WINDOW_NONE && bool(*this); }
    explicit operator bool() const { return *this != FrontWindow(); }
    friend bool operator==(const FrontWindow&, const FrontWindow&) = default;
};

} // namespace tarnwick
