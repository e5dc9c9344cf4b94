// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11Connection.h"

#include <QMargins>
#include <QRect>

#include <optional>

namespace tarnwick {

/// Where a window stands on the root, in X pixels from its top left, with its title bar and borders and
/// without its shadow. Changes go through the window manager, which may decide otherwise.
class X11WindowFrame
{
public:
    /// The connection must outlive this.
    X11WindowFrame(X11Connection& x11, xcb_window_t window) : _x11(x11), _window(window) {}

    /// Nothing when the window is gone.
    [[nodiscard]] std::optional<QRect> geometry();
    /// False when the window is gone.
    bool move(const QPoint& position);
    bool resize(const QSize& size);

private:
    [[nodiscard]] std::optional<QRect> _client();
    /// From the client's rectangle outwards; negative where a shadow belongs to the client.
    [[nodiscard]] QMargins _margins();
    [[nodiscard]] bool _managerMoves();
    void _ask(const QRect& client, std::uint16_t fields);

    X11Connection& _x11;
    xcb_window_t _window;
};

} // namespace tarnwick
