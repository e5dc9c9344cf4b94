// SPDX-License-Identifier: MIT
#include "shortcut/RecorderTransition.h"

#include "shortcut/Easing.h"

#include <utility>

namespace tarnwick {

namespace {

// Single precision on purpose: the eleventh tick is then the last one.
constexpr float SecondsPerTick = 1.0F / 30.0F;
constexpr float ProgressPerTick = 2.0F / 21.0F;
constexpr double TransitionEnd = 0.998;

} // namespace

RecorderTransition::RecorderTransition(std::function<void()> moved,
                                       std::function<void(bool towardsRecording)> arrived)
    : _moved(std::move(moved)), _arrived(std::move(arrived))
{
}

void RecorderTransition::start(bool towardsRecording)
{
    _isAnimatingTowardsRecording = towardsRecording;
    _isAnimatingNow = true;
    _transitionProgress = 0;
    _scheduleTick();
}

void RecorderTransition::_scheduleTick()
{
    _pendingTick = Clock::shared().performAfterDelay(SecondsPerTick, [this] { _tick(); });
}

void RecorderTransition::_tick()
{
    _transitionProgress += ProgressPerTick;
    if (_transitionProgress < TransitionEnd) {
        _moved();
        _scheduleTick();
        return;
    }
    _isAnimatingNow = false;
    _transitionProgress = 0;
    _arrived(_isAnimatingTowardsRecording);
}

double RecorderTransition::shareOfRecordingLook(bool isRecording) const
{
    if (!_isAnimatingNow)
        return isRecording ? 1 : 0;
    const double eased = SRAnimationEaseInOut(_transitionProgress);
    return _isAnimatingTowardsRecording ? eased : 1 - eased;
}

} // namespace tarnwick
