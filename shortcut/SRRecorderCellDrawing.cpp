// SPDX-License-Identifier: MIT
// What a recorder cell looks like now, as a picture that draws itself.
#include "shortcut/Easing.h"
#include "shortcut/RecorderPicture.h"
#include "shortcut/SRRecorderCell.h"

namespace tarnwick {

namespace {

/// From the coordinates of the view, y upward and x from the leading edge, to those of the painter.
QRectF toPainter(const QRectF& rect, const QRectF& frame, bool rightToLeft)
{
    if (rect.isNull())
        return rect;
    const double left = rightToLeft ? frame.left() + frame.right() - rect.right() : rect.left();
    return {left, frame.top() + frame.bottom() - rect.bottom(), rect.width(), rect.height()};
}

} // namespace

double SRRecorderCell::_shareOfRecordingLook() const
{
    if (!_isAnimatingNow)
        return _isRecording ? 1 : 0;
    const double eased = SRAnimationEaseInOut(_transitionProgress);
    return _isAnimatingTowardsRecording ? eased : 1 - eased;
}

void SRRecorderCell::drawWithFrameInView(const QRectF& frame, QPainter& painter,
                                         const RecorderCellView& view) const
{
    const bool rightToLeft = view.isRightToLeft();
    RecorderPicture picture;
    picture.frame = frame;
    picture.palette = view.palette();
    picture.recordingGradient = *_recordingGradient;
    picture.style = _style;
    picture.enabled = _enabled;
    picture.focused = view.showsFirstResponder();
    picture.rightToLeft = rightToLeft;
    picture.recordingShare = _shareOfRecordingLook();
    picture.idleText = _idleText();
    picture.idleTextIsPrompt = isEmpty();
    picture.removeImageName = _removeImageName();
    picture.removeRect = toPainter(removeButtonRectForFrame(frame), frame, rightToLeft);
    picture.recordingText = _recordingText();
    picture.snapbackRect = toPainter(snapbackRectForFrame(frame), frame, rightToLeft);
    picture.overSnapback = _isRecording && _mouseInsideTrackingArea;
    picture.pressedSnapback = _mouseDown;
    picture.draw(painter);
}

} // namespace tarnwick
