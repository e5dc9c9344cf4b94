// SPDX-License-Identifier: MIT
#include "prefs/FrameAnimation.h"

#include "shortcut/Easing.h"

#include <QWidget>

namespace tarnwick {

namespace {

constexpr int Ticks = 12;
constexpr double SecondsPerTick = 1.0 / 60;

int between(int from, int to, double share)
{
    return qRound(from + (to - from) * share);
}

} // namespace

void FrameAnimation::setFrame(const QRect& frame, bool animate)
{
    _pendingTick.reset();
    if (!animate || !_window.isVisible()) {
        _apply(frame);
        return;
    }
    _from = _window.geometry();
    _to = frame;
    _ticks = 0;
    _pendingTick = Clock::shared().performAfterDelay(SecondsPerTick, [this] { _tick(); });
}

void FrameAnimation::_tick()
{
    const double share = SRAnimationEaseInOut(double(++_ticks) / Ticks);
    _apply({between(_from.x(), _to.x(), share), between(_from.y(), _to.y(), share),
            between(_from.width(), _to.width(), share), between(_from.height(), _to.height(), share)});
    _pendingTick =
        _ticks < Ticks ? Clock::shared().performAfterDelay(SecondsPerTick, [this] { _tick(); }) : nullptr;
}

void FrameAnimation::_apply(const QRect& frame)
{
    _window.setFixedSize(frame.size());
    if (_window.pos() != frame.topLeft() && _window.geometry().topLeft() != frame.topLeft())
        _window.setGeometry(frame);
}

} // namespace tarnwick
