// SPDX-License-Identifier: MIT
#include "shortcut/RecorderPicture.h"

#include "foundation/Fonts.h"
#include "shortcut/RecorderAppearance.h"
#include "shortcut/SRSharedImageProvider.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTextOption>
#include <QTransform>

#include <cmath>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

using Look = RecorderAppearance;

QPainterPath rounded(const QRectF& rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

QRectF inset(const QRectF& rect, double by)
{
    return rect.adjusted(by, by, -by, -by);
}

/// Along the gradient angle: the starting colour lies at the bottom.
QLinearGradient upward(const QRectF& rect, const QColor& starting, const QColor& ending)
{
    static_assert(Look::GradientAngle == 90.0);
    QLinearGradient gradient(rect.bottomLeft(), rect.topLeft());
    gradient.setColorAt(0, starting);
    gradient.setColorAt(1, ending);
    return gradient;
}

/// One drawing of one picture.
class Drawing
{
public:
    Drawing(const RecorderPicture& picture, QPainter& painter)
        : _picture(picture), _painter(painter),
          _look(Look::of(picture.palette, picture.enabled, picture.style)),
          _device(painter.deviceTransform()), _pixel(1 / _device.m11()),
          _field(_onPixels(inset(picture.frame, Look::FieldInset))),
          _radius(picture.style == 1 ? _field.height() / 2 : Look::FieldCornerRadius),
          _shape(rounded(_field, _radius))
    {
    }

    void draw()
    {
        _painter.save();
        _painter.setRenderHint(QPainter::Antialiasing);
        if (_picture.focused)
            _drawFocusRing();
        if (_picture.style == 1)
            _drawPill();
        else
            _drawTextField();
        _drawBorder();
        _painter.restore();
    }

private:
    void _drawTextField()
    {
        _drawLayer(_groundOpacity(), 0, [this] {
            _painter.fillPath(_shape, _look.fieldBottom);
            _drawInnerShade();
        });
        _drawContents(0);
    }

    void _drawPill()
    {
        _drawLayer(_groundOpacity(), 0,
                   [this] { _painter.fillPath(_shape, upward(_field, _look.fieldBottom, _look.fieldTop)); });
        _drawContents(_field.height());
    }

    /// The idle and the recording contents, one over the other as far as the transition has come; `travel` is
    /// how far the texts move in it.
    void _drawContents(double travel)
    {
        const double share = _picture.recordingShare;
        _painter.save();
        _painter.setClipPath(_shape);
        if (share < 1)
            _drawLayer(1 - share, -share * travel, [this] { _drawIdle(); });
        if (share > 0) {
            _drawLayer(share, 0, [this] { _painter.fillPath(_shape, _look.recordingGround); });
            _drawLayer(share, (1 - share) * travel, [this] { _drawRecordingText(); });
            _drawLayer(share, 0, [this] { _drawRecordingRing(); });
            _drawCap((1 - share) * Look::CapWidth);
        }
        _painter.restore();
    }

    [[nodiscard]] double _groundOpacity() const { return _picture.enabled ? 1.0 : Look::DisabledOpacity; }

    template <typename Contents>
    void _drawLayer(double opacity, double down, const Contents& contents)
    {
        _painter.save();
        _painter.setOpacity(_painter.opacity() * opacity);
        _painter.translate(0, down);
        contents();
        _painter.restore();
    }

    void _drawIdle()
    {
        const QRectF button = _picture.removeRect;
        _drawText(_picture.idleText, _picture.idleTextIsPrompt, _textRect(button));
        if (!button.isNull()) {
            SRSharedImageProvider::supportingImageWithName(_picture.removeImageName)
                ->draw(_painter, _onPixels(button), 1.0);
        }
    }

    void _drawRecordingText() { _drawText(_picture.recordingText, true, _textRect(_cap())); }

    void _drawRecordingRing()
    {
        QPainterPath ring = _shape;
        ring.addPath(rounded(inset(_field, Look::RecordingRingWidth),
                             std::max(0.0, _radius - Look::RecordingRingWidth)));
        ring.setFillRule(Qt::OddEvenFill);
        _painter.fillPath(ring, _recordingBrush());
    }

    /// The cap, `out` points on its way out of the field.
    void _drawCap(double out)
    {
        _painter.save();
        _painter.translate(_picture.rightToLeft ? -out : out, 0);
        const QPainterPath cap = _picture.style == 1 ? rounded(_cap(), _radius) : rounded(_cap(), 0);
        _painter.fillPath(cap, _recordingBrush());
        if (_picture.overSnapback && _picture.pressedSnapback)
            _painter.fillPath(cap, QColor::fromRgbF(0, 0, 0, float(Look::CapPressedAlpha)));
        else if (_picture.overSnapback)
            _painter.fillPath(cap, QColor::fromRgbF(1, 1, 1, float(Look::CapOverAlpha)));
        SRSharedImageProvider::supportingImageWithName(u"SRSnapback"_s)
            ->draw(_painter, _onPixels(_picture.snapbackRect), 1.0, _picture.rightToLeft);
        _painter.restore();
    }

    void _drawFocusRing()
    {
        QPainterPath ring = rounded(_field.adjusted(-Look::FocusRingWidth, -Look::FocusRingWidth,
                                                    Look::FocusRingWidth, Look::FocusRingWidth),
                                    _radius + Look::FocusRingWidth);
        ring.addPath(_shape);
        ring.setFillRule(Qt::OddEvenFill);
        _painter.fillPath(ring, _look.focusRing);
    }

    void _drawBorder()
    {
        const double width = std::max(1.0, std::floor(1 / _pixel)) * _pixel;
        // Where the gradient lies under it, the border only darkens its edge.
        const double strength = 1 - (1 - Look::RecordingBorderAlpha) * _picture.recordingShare;
        _painter.setOpacity(_groundOpacity() * strength);
        _painter.setPen(QPen(_look.border, width));
        _painter.setBrush(Qt::NoBrush);
        _painter.drawPath(rounded(inset(_field, width / 2), std::max(0.0, _radius - width / 2)));
    }

    void _drawInnerShade()
    {
        QLinearGradient shade(_field.topLeft(), _field.topLeft() + QPointF(0, 4));
        shade.setColorAt(0, QColor::fromRgbF(0, 0, 0, float(Look::InnerShadeAlpha)));
        shade.setColorAt(1, Qt::transparent);
        _painter.fillPath(_shape, shade);
    }

    void _drawText(const QString& text, bool prompt, const QRectF& rect)
    {
        const Fonts& fonts = Fonts::shared();
        const QFont font =
            fonts.systemFontOfSize(prompt ? fonts.labelFontSize() : fonts.smallSystemFontSize());
        const QFontMetricsF metrics(font, _painter.device());
        // In the middle of the field where there is room for that, else in the middle of what is left.
        const double half = std::min(_field.center().x() - rect.left(), rect.right() - _field.center().x());
        const QRectF middle(_field.center().x() - half, rect.top(), 2 * half, rect.height());
        const QRectF place = metrics.horizontalAdvance(text) <= middle.width() ? middle : rect;

        QTextOption centred(Qt::AlignCenter);
        centred.setWrapMode(QTextOption::NoWrap);
        centred.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        _painter.setFont(font);
        _painter.setPen(prompt ? _look.promptText : _look.combinationText);
        _painter.drawText(place, metrics.elidedText(text, Qt::ElideRight, place.width()), centred);
    }

    /// What is left of the field beside `button`, which stands at its end.
    [[nodiscard]] QRectF _textRect(const QRectF& button) const
    {
        QRectF rect = _field.adjusted(Look::TextPadding, 0, -Look::TextPadding, 0);
        if (button.isNull())
            return rect;
        if (_picture.rightToLeft)
            rect.setLeft(button.right() + Look::TextGapToButton);
        else
            rect.setRight(button.left() - Look::TextGapToButton);
        return rect;
    }

    [[nodiscard]] QRectF _cap() const
    {
        const double left = _picture.rightToLeft ? _field.left() : _field.right() - Look::CapWidth;
        return {left, _field.top(), Look::CapWidth, _field.height()};
    }

    [[nodiscard]] QBrush _recordingBrush() const
    {
        return upward(_field, _picture.recordingGradient.starting, _picture.recordingGradient.ending);
    }

    /// Edges that fall on whole pixels of the device are sharp.
    [[nodiscard]] QRectF _onPixels(const QRectF& rect) const
    {
        const QRectF device = _device.mapRect(rect);
        const QRectF whole(QPointF(std::round(device.left()), std::round(device.top())),
                           QPointF(std::round(device.right()), std::round(device.bottom())));
        return _device.inverted().mapRect(whole);
    }

    const RecorderPicture& _picture;
    QPainter& _painter;
    const Look _look;
    const QTransform _device; ///< from points to pixels of the device; turns nothing
    const double _pixel;      ///< one pixel of the device, in points
    const QRectF _field;
    const double _radius;
    const QPainterPath _shape;
};

} // namespace

double RecorderPicture::widthFor(const QString& combination)
{
    // Both fonts that a text can have; at most as much as the cap is taken by what stands at the end.
    const Fonts& fonts = Fonts::shared();
    const double text = std::max(
        QFontMetricsF(fonts.systemFontOfSize(fonts.labelFontSize())).horizontalAdvance(combination),
        QFontMetricsF(fonts.systemFontOfSize(fonts.smallSystemFontSize())).horizontalAdvance(combination));
    return text + 2 * (Look::FieldInset + Look::TextPadding) + Look::CapWidth + Look::TextGapToButton;
}

void RecorderPicture::draw(QPainter& painter) const
{
    Drawing(*this, painter).draw();
}

} // namespace tarnwick
