// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Event.h"

#include <QPalette>
#include <QPointF>
#include <QRectF>
#include <QtGlobal>

namespace tarnwick {

/// The view that a recorder cell works in. Its coordinates are points with the origin at the bottom left and
/// y growing upward; in a right-to-left layout x grows from the right edge leftward. GUI thread only.
class RecorderCellView
{
public:
    virtual ~RecorderCellView() = default;

    [[nodiscard]] virtual QRectF bounds() const = 0;
    /// `location` is an Event's locationInWindow.
    [[nodiscard]] virtual QPointF convertPointFromWindow(const QPointF& location) const = 0;
    [[nodiscard]] virtual bool isRightToLeft() const = 0;
    [[nodiscard]] virtual QPalette palette() const = 0;

    virtual void setNeedsDisplay() = 0;
    virtual void setKeyboardFocusRingNeedsDisplay() = 0;
    /// Whether the focus ring is to be drawn now.
    [[nodiscard]] virtual bool showsFirstResponder() const = 0;

    [[nodiscard]] virtual bool isFirstResponder() const = 0;
    virtual void makeFirstResponder() = 0;
    [[nodiscard]] virtual bool windowIsKey() const = 0;
    [[nodiscard]] virtual bool acceptsFirstMouse(const Event& event) const = 0;

    /// Names a tracking rectangle; 0 is none.
    using TrackingRectTag = quint64;
    /// From now on the cell is told when the pointer enters or leaves `rect`; it counts as inside now when
    /// `assumeInside` says so.
    [[nodiscard]] virtual TrackingRectTag addTrackingRect(const QRectF& rect, bool assumeInside) = 0;
    /// A tag that is not in use is ignored.
    virtual void removeTrackingRect(TrackingRectTag tag) = 0;

protected:
    RecorderCellView() = default;
    RecorderCellView(const RecorderCellView&) = default;
    RecorderCellView& operator=(const RecorderCellView&) = default;
    RecorderCellView(RecorderCellView&&) = default;
    RecorderCellView& operator=(RecorderCellView&&) = default;
};

} // namespace tarnwick
