// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace tarnwick {

/// An invisible window below our menu, over everything else, while a native window is in front: through it
/// XWayland learns where the pointer is, and that the user clicks beside the menu. It never takes the
/// keyboard focus. Lives as long as the menu is open.
class XWaylandBackdrop final : public QWidget
{
    Q_OBJECT

public:
    XWaylandBackdrop();

    /// Returns when the server knows the pointer's place, after a fifth of a second at the latest.
    void waitForPointer();

Q_SIGNALS:
    void entered();

protected:
    bool event(QEvent* event) override;
};

} // namespace tarnwick
