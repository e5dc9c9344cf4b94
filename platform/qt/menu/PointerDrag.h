// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

namespace tarnwick {

/// The button that was down when the pop-up opened. As long as the pointer stays where it is, holding and
/// releasing it means nothing to the menu; moved away, it works the menu as a button that was pressed there.
class PointerDrag
{
public:
    static constexpr int Threshold = 10; ///< device pixels, along both axes together

    enum class Step { None, Moved, Released };

    void start(QPoint pixel) { _start = pixel; }

    /// What the menu is to be told, now that the pointer is at `pixel` and the button is down or up.
    [[nodiscard]] Step follow(QPoint pixel, bool down);

private:
    QPoint _start;
    bool _dragging = false;
};

} // namespace tarnwick
