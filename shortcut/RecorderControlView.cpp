// SPDX-License-Identifier: MIT
#include "shortcut/RecorderControlView.h"

#include "shortcut/SRRecorderControl.h"

#include <utility>

namespace tarnwick {

RecorderControlView::RecorderControlView(QWidget& control, std::function<void()> changed)
    : _control(control), _changed(std::move(changed))
{
}

QRectF RecorderControlView::bounds() const
{
    return _control.rect();
}

QPointF RecorderControlView::convertPointFromWindow(const QPointF& location) const
{
    return convertPoint(_control.mapFrom(_control.window(), location));
}

QPointF RecorderControlView::convertPoint(const QPointF& point) const
{
    return {isRightToLeft() ? _control.width() - point.x() : point.x(), _control.height() - point.y()};
}

bool RecorderControlView::isRightToLeft() const
{
    return _control.isRightToLeft();
}

QPalette RecorderControlView::palette() const
{
    return _control.palette();
}

void RecorderControlView::setNeedsDisplay()
{
    _control.update();
    _changed();
}

void RecorderControlView::setKeyboardFocusRingNeedsDisplay()
{
    _control.update();
}

bool RecorderControlView::showsFirstResponder() const
{
    return _control.hasFocus();
}

bool RecorderControlView::isFirstResponder() const
{
    return _control.window()->focusWidget() == &_control;
}

void RecorderControlView::makeFirstResponder()
{
    _control.setFocus(Qt::MouseFocusReason);
}

bool RecorderControlView::windowIsKey() const
{
    return _control.isActiveWindow();
}

bool RecorderControlView::acceptsFirstMouse(const Event& /*event*/) const
{
    return SRRecorderControl::acceptsFirstMouse();
}

RecorderCellView::TrackingRectTag RecorderControlView::addTrackingRect(const QRectF& rect, bool assumeInside)
{
    return _trackingRects.add(rect, assumeInside);
}

void RecorderControlView::removeTrackingRect(TrackingRectTag tag)
{
    _trackingRects.remove(tag);
}

} // namespace tarnwick
