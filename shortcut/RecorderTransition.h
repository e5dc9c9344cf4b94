// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"

#include <functional>
#include <memory>

namespace tarnwick {

/// The short way of a recorder's cell into recording or out of it, in eleven ticks of a thirtieth of a
/// second. GUI thread only.
class RecorderTransition
{
public:
    /// `moved` runs after each tick but the last one, `arrived` after the last one; neither once this is
    /// destroyed.
    RecorderTransition(std::function<void()> moved, std::function<void(bool towardsRecording)> arrived);

    /// Takes the place of one that is under way.
    void start(bool towardsRecording);

    [[nodiscard]] bool isAnimatingNow() const { return _isAnimatingNow; }
    /// The direction, of the last one where none is under way.
    [[nodiscard]] bool isAnimatingTowardsRecording() const { return _isAnimatingTowardsRecording; }
    /// From 0 to 1 while one is under way; otherwise 0.
    [[nodiscard]] double progress() const { return _transitionProgress; }
    /// How much of the recording look shows, 0 to 1; `isRecording` says where the cell stands when none is
    /// under way.
    [[nodiscard]] double shareOfRecordingLook(bool isRecording) const;

private:
    void _scheduleTick();
    void _tick();

    std::function<void()> _moved;
    std::function<void(bool)> _arrived;
    double _transitionProgress = 0;
    bool _isAnimatingNow = false;
    bool _isAnimatingTowardsRecording = false;
    std::unique_ptr<Clock::Timer> _pendingTick;
};

} // namespace tarnwick
