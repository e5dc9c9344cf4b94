// SPDX-License-Identifier: MIT
// The mouse over a recorder cell: its two small buttons, clicks and tracking rectangles.
#include "foundation/Application.h"
#include "foundation/EventSource.h"
#include "shortcut/Geometry.h"
#include "shortcut/SRRecorderCell.h"
#include "shortcut/SRSharedImageProvider.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 MouseUpAndDragged =
    1U << quint32(Event::Type::LeftMouseUp) | 1U << quint32(Event::Type::LeftMouseDragged);

} // namespace

QRectF SRRecorderCell::removeButtonRectForFrame(const QRectF& cellFrame) const
{
    if (isEmpty() || !_state.enabled)
        return {};
    const QSizeF image = SRSharedImageProvider::supportingImageWithName(u"SRRemoveShortcut"_s)->size();
    // Halves the frame's y as well, on purpose: frames begin at 0.
    return {{cellFrame.x() + cellFrame.width() - image.width() - 4.0,
             (cellFrame.y() + cellFrame.height() - image.height()) * 0.5},
            image};
}

QRectF SRRecorderCell::snapbackRectForFrame(const QRectF& cellFrame) const
{
    const QSizeF image = SRSharedImageProvider::supportingImageWithName(u"SRSnapback"_s)->size();
    return {{cellFrame.x() + cellFrame.width() - image.width() - 2.0,
             (cellFrame.y() + cellFrame.height() - image.height()) * 0.5 + 1.0},
            image};
}

bool SRRecorderCell::trackMouseInRectOfViewUntilMouseUp(const Event& event, const QRectF& cellFrame,
                                                        RecorderCellView& view, bool /*untilMouseUp*/)
{
    const QRectF buttonRect =
        _state.isRecording ? snapbackRectForFrame(cellFrame) : removeButtonRectForFrame(cellFrame);
    QRectF mainArea = cellFrame;
    if (!buttonRect.isNull())
        mainArea.setWidth(mainArea.width() - (4.0 + buttonRect.width()));

    for (Event current = event;;) {
        const bool insideButton = isInside(view.convertPointFromWindow(current.locationInWindow), buttonRect);
        if (current.type == Event::Type::LeftMouseDown) {
            if (insideButton) {
                _state.mouseDown = true;
                view.setNeedsDisplay();
            }
        } else if (current.type == Event::Type::LeftMouseDragged) {
            _state.mouseInsideTrackingArea = insideButton;
            view.setNeedsDisplay();
        } else {
            _finishTracking(current, buttonRect, mainArea, view);
            return true;
        }
        const auto next = EventSource::shared().nextEventMatchingMask(MouseUpAndDragged);
        if (!next)
            return true;
        current = *next;
    }
}

void SRRecorderCell::_finishTracking(const Event& event, const QRectF& buttonRect, const QRectF& mainArea,
                                     RecorderCellView& view)
{
    const QPointF location = view.convertPointFromWindow(event.locationInWindow);
    _state.mouseDown = false;
    _state.mouseInsideTrackingArea = isInside(location, buttonRect);
    if (_state.mouseInsideTrackingArea) {
        if (_state.isRecording)
            _endRecordingTransition();
        else
            setKeyCombo({0, -1});
    } else if (isInside(location, mainArea) && !_state.isRecording && _state.enabled) {
        _startRecordingTransition();
    }
    if (_state.enabled)
        view.makeFirstResponder();
    resetTrackingRects();
    view.setNeedsDisplay();
}

void SRRecorderCell::resetTrackingRects()
{
    if (!_state.controlView)
        return;
    if (!_state.enabled) {
        _state.controlView->removeTrackingRect(_state.removeTrackingRectTag);
        _state.controlView->removeTrackingRect(_state.snapbackTrackingRectTag);
        return;
    }
    if (_state.isRecording)
        _resetTrackingRect(snapbackRectForFrame(_state.controlView->bounds()),
                           _state.snapbackTrackingRectTag);
    else
        _resetTrackingRect(removeButtonRectForFrame(_state.controlView->bounds()),
                           _state.removeTrackingRectTag);
}

void SRRecorderCell::_resetTrackingRect(const QRectF& rect, RecorderCellView::TrackingRectTag& tag)
{
    const auto event = Application::shared().currentEvent();
    const bool inside =
        event && isInside(_state.controlView->convertPointFromWindow(event->locationInWindow), rect);
    if (tag != 0)
        _state.controlView->removeTrackingRect(tag);
    tag = _state.controlView->addTrackingRect(rect, inside);
    _state.mouseInsideTrackingArea = inside;
}

bool SRRecorderCell::_mouseEventCounts(const Event& event) const
{
    return _state.controlView &&
           (_state.controlView->windowIsKey() || _state.controlView->acceptsFirstMouse(event));
}

void SRRecorderCell::mouseEntered(const Event& event)
{
    if (!_mouseEventCounts(event))
        return;
    _state.mouseInsideTrackingArea = true;
    _setNeedsDisplay();
}

void SRRecorderCell::mouseExited(const Event& event)
{
    if (!_mouseEventCounts(event))
        return;
    _state.mouseInsideTrackingArea = false;
    _setNeedsDisplay();
}

} // namespace tarnwick
