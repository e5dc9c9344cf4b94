// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/RecorderCellView.h"

#include <QMap>

#include <functional>

namespace tarnwick {

/// Rectangles that the pointer enters and leaves. Their right and upper edges are outside.
class TrackingRects
{
public:
    using Tag = RecorderCellView::TrackingRectTag;

    /// Tags are never used twice.
    [[nodiscard]] Tag add(const QRectF& rect, bool assumeInside);
    void remove(Tag tag) { _rects.remove(tag); }

    /// The pointer is at `point` now: `crossed` runs for each rectangle that it has entered or left, first
    /// those that it has left.
    void pointerMoved(const QPointF& point, const std::function<void(bool entered)>& crossed);
    /// The pointer is in none of them any more.
    void pointerLeft(const std::function<void(bool entered)>& crossed);

private:
    struct Rect
    {
        QRectF rect;
        bool inside = false;
    };
    void _update(const std::function<bool(const QRectF&)>& contains,
                 const std::function<void(bool entered)>& crossed);

    QMap<Tag, Rect> _rects;
    Tag _lastTag = 0;
};

} // namespace tarnwick
