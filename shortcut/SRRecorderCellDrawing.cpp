// SPDX-License-Identifier: MIT
// What a recorder cell looks like now, as a picture that draws itself.
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

void SRRecorderCell::drawWithFrameInView(const QRectF& frame, QPainter& painter,
                                         const RecorderCellView& view) const
{
    const bool rightToLeft = view.isRightToLeft();
    RecorderPicture picture;
    picture.frame = frame;
    picture.palette = view.palette();
    picture.recordingGradient = *_state.recordingGradient;
    picture.style = _state.style;
    picture.enabled = _state.enabled;
    picture.focused = view.showsFirstResponder();
    picture.rightToLeft = rightToLeft;
    picture.recordingShare = _transition.shareOfRecordingLook(_state.isRecording);
    picture.idleText = _idleText();
    picture.idleTextIsPrompt = isEmpty();
    picture.removeImageName = _removeImageName();
    picture.removeRect = toPainter(removeButtonRectForFrame(frame), frame, rightToLeft);
    picture.recordingText = _recordingText();
    picture.snapbackRect = toPainter(snapbackRectForFrame(frame), frame, rightToLeft);
    picture.overSnapback = _state.isRecording && _state.mouseInsideTrackingArea;
    picture.pressedSnapback = _state.mouseDown;
    picture.draw(painter);
}

} // namespace tarnwick
