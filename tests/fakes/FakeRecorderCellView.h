// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/RecorderCellView.h"
#include "tests/fakes/Journal.h"

#include <QMap>

namespace tarnwick {

/// A view of 200 by 22 points whose lower left corner is at (100, 50) in its window.
class FakeRecorderCellView final : public RecorderCellView
{
public:
    QRectF frame{0, 0, 200, 22}; ///< lever: what bounds() gives
    QPointF origin{100, 50};     ///< lever: of the view, in the window
    bool firstResponder = false; ///< lever and look
    bool keyWindow = true;       ///< lever
    bool takesFirstMouse = true; ///< lever
    bool rightToLeft = false;    ///< lever
    QPalette colors;             ///< lever
    int displays = 0;            ///< look: how often it was to be redrawn
    int focusRings = 0;          ///< look: the same for its focus ring
    struct Tracked
    {
        QRectF rect;
        bool assumedInside = false;
    };
    QMap<TrackingRectTag, Tracked> tracked; ///< look
    Journal* journal = nullptr;             ///< "display", "focus ring", "make first responder"

    /// An event's location for a point in the view.
    [[nodiscard]] QPointF inWindow(const QPointF& point) const { return point + origin; }

    [[nodiscard]] QRectF bounds() const override { return frame; }
    [[nodiscard]] QPointF convertPointFromWindow(const QPointF& location) const override
    {
        return location - origin;
    }
    [[nodiscard]] bool isRightToLeft() const override { return rightToLeft; }
    [[nodiscard]] QPalette palette() const override { return colors; }
    void setNeedsDisplay() override
    {
        ++displays;
        note(journal, QStringLiteral("display"));
    }
    void setKeyboardFocusRingNeedsDisplay() override
    {
        ++focusRings;
        note(journal, QStringLiteral("focus ring"));
    }
    [[nodiscard]] bool showsFirstResponder() const override { return firstResponder; }
    [[nodiscard]] bool isFirstResponder() const override { return firstResponder; }
    void makeFirstResponder() override
    {
        firstResponder = true;
        note(journal, QStringLiteral("make first responder"));
    }
    [[nodiscard]] bool windowIsKey() const override { return keyWindow; }
    [[nodiscard]] bool acceptsFirstMouse(const Event& /*event*/) const override { return takesFirstMouse; }
    [[nodiscard]] TrackingRectTag addTrackingRect(const QRectF& rect, bool assumeInside) override
    {
        tracked.insert(++_lastTag, {rect, assumeInside});
        return _lastTag;
    }
    void removeTrackingRect(TrackingRectTag tag) override { tracked.remove(tag); }

private:
    TrackingRectTag _lastTag = 0;
};

} // namespace tarnwick
