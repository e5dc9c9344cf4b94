// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

#include <QRect>

#include <memory>

class QWidget;

namespace tarnwick {

/// Changes the frame of one window, at once or over a moment, in the origin-at-the-top-left coordinates of
/// QWidget. The window cannot be resized in any other way.
class FrameAnimation
{
public:
    /// The window is not owned and must live as long as this.
    explicit FrameAnimation(QWidget& window) : _window(window) {}

    /// A change that is on its way ends where it is.
    void setFrame(const QRect& frame, bool animate);

private:
    void _tick();
    void _apply(const QRect& frame);

    QWidget& _window;
    QRect _from;
    QRect _to;
    int _ticks = 0;
    std::unique_ptr<Clock::Timer> _pendingTick;
};

} // namespace tarnwick
