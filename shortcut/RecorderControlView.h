// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/RecorderCellView.h"
#include "shortcut/TrackingRects.h"

#include <functional>

class QWidget;

namespace tarnwick {

/// A recorder control as its cell sees it: upside down, and mirrored where the language runs from right to
/// left. GUI thread only.
class RecorderControlView final : public RecorderCellView
{
public:
    /// The control is not owned and must outlive the view. `changed` runs each time that the cell has changed
    /// what the control shows.
    RecorderControlView(QWidget& control, std::function<void()> changed);

    [[nodiscard]] QRectF bounds() const override;
    [[nodiscard]] QPointF convertPointFromWindow(const QPointF& location) const override;
    /// From the coordinates of the control.
    [[nodiscard]] QPointF convertPoint(const QPointF& point) const;
    [[nodiscard]] bool isRightToLeft() const override;
    [[nodiscard]] QPalette palette() const override;

    void setNeedsDisplay() override;
    void setKeyboardFocusRingNeedsDisplay() override;
    [[nodiscard]] bool showsFirstResponder() const override;
    [[nodiscard]] bool isFirstResponder() const override;
    void makeFirstResponder() override;
    [[nodiscard]] bool windowIsKey() const override;
    [[nodiscard]] bool acceptsFirstMouse(const Event& event) const override;
    [[nodiscard]] TrackingRectTag addTrackingRect(const QRectF& rect, bool assumeInside) override;
    void removeTrackingRect(TrackingRectTag tag) override;

    [[nodiscard]] TrackingRects& trackingRects() { return _trackingRects; }

private:
    QWidget& _control;
    std::function<void()> _changed;
    TrackingRects _trackingRects;
};

} // namespace tarnwick
