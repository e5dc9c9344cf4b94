// SPDX-License-Identifier: MIT
#include "shortcut/TrackingRects.h"

#include "shortcut/Geometry.h"

namespace tarnwick {

TrackingRects::Tag TrackingRects::add(const QRectF& rect, bool assumeInside)
{
    _rects.insert(++_lastTag, {rect, assumeInside});
    return _lastTag;
}

void TrackingRects::pointerMoved(const QPointF& point, const std::function<void(bool entered)>& crossed)
{
    _update([&point](const QRectF& rect) { return isInside(point, rect); }, crossed);
}

void TrackingRects::pointerLeft(const std::function<void(bool entered)>& crossed)
{
    _update([](const QRectF&) { return false; }, crossed);
}

void TrackingRects::_update(const std::function<bool(const QRectF&)>& contains,
                            const std::function<void(bool entered)>& crossed)
{
    int left = 0;
    int entered = 0;
    for (Rect& each : _rects) {
        const bool inside = contains(each.rect);
        left += each.inside && !inside;
        entered += !each.inside && inside;
        each.inside = inside;
    }
    for (; left > 0; --left)
        crossed(false);
    for (; entered > 0; --entered)
        crossed(true);
}

} // namespace tarnwick
