// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/ColorMixing.h"

#include <QColor>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace tarnwick {

/// How a recorder looks: every measure and colour that is a matter of taste is settled here, and only here.
///
/// The control is 22 points high. A ring of 2 points all round is left to the keyboard focus; inside it lies
/// the field, 18 points high: in style 0 a text field with slightly rounded corners, in style 1 a pill that
/// can be pressed. While recording, the field wears a ring of the recording gradient and at its end a cap of
/// the same gradient that carries the white snap-back arrow; the text stays on the plain ground, where it can
/// be read. In a transition the old text leaves upward and the new one comes from below, and the cap slides
/// in from its end.
struct RecorderAppearance
{
    // Measures, in points.
    static constexpr double FieldInset = 2.0;
    static constexpr double FieldCornerRadius = 3.0; ///< style 0; style 1 has half the height
    static constexpr double FocusRingWidth = 2.0;
    static constexpr double RecordingRingWidth = 2.0;
    static constexpr double CapWidth = 20.0; ///< from the end of the field
    static constexpr double TextPadding = 6.0;
    static constexpr double TextGapToButton = 3.0;
    static constexpr double GradientAngle = 90.0; ///< from the bottom to the top

    // Shares of one, for mixing and for opacity.
    static constexpr double FocusRingAlpha = 0.6;
    static constexpr double CapOverAlpha = 0.2;         ///< white, under the pointer
    static constexpr double CapPressedAlpha = 0.2;      ///< black, pressed
    static constexpr double DisabledOpacity = 0.6;      ///< of the field, not of its text
    static constexpr double RecordingBorderAlpha = 0.4; ///< of the border over the recording ring
    static constexpr double BorderShare = 0.4;
    static constexpr double SheenShare = 0.4; ///< of white at the top of the pill
    static constexpr double DarkSheenShare = 0.06;
    static constexpr double InnerShadeAlpha = 0.08; ///< under the upper edge of the text field

    static constexpr double LeastContrast = 4.5; ///< of a prompt against its ground

    QColor fieldTop;    ///< idle ground, at the top
    QColor fieldBottom; ///< and at the bottom
    QColor recordingGround;
    QColor border;
    QColor combinationText;
    QColor promptText;
    QColor focusRing;

    [[nodiscard]] static RecorderAppearance of(const QPalette& palette, bool enabled, int style);
};

/// Relative luminance, 0 to 1.
[[nodiscard]] inline double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1 for equal colours to 21 for black on white.
[[nodiscard]] inline double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// `color` moved towards `strong` only as far as it takes to stand out from `ground`.
[[nodiscard]] inline QColor legible(const QColor& color, const QColor& strong, const QColor& ground)
{
    constexpr int Steps = 20;
    for (int step = 0; step < Steps; ++step) {
        const QColor candidate = blended(color, double(step) / Steps, strong);
        if (contrast(candidate, ground) >= RecorderAppearance::LeastContrast)
            return candidate;
    }
    return strong;
}

inline RecorderAppearance RecorderAppearance::of(const QPalette& palette, bool enabled, int style)
{
    const auto group = enabled ? QPalette::Active : QPalette::Disabled;
    const QColor base = palette.color(group, QPalette::Base);
    const QColor button = palette.color(group, QPalette::Button);
    const bool dark = luminance(palette.color(QPalette::Active, QPalette::Window)) < 0.2;

    RecorderAppearance look;
    look.recordingGround = base;
    look.fieldTop = style == 1 ? highlighted(button, dark ? DarkSheenShare : SheenShare) : base;
    look.fieldBottom = style == 1 ? button : base;
    look.border = blended(palette.color(QPalette::Active, QPalette::Window), BorderShare,
                          palette.color(group, QPalette::WindowText));
    look.combinationText = palette.color(group, style == 1 ? QPalette::ButtonText : QPalette::Text);
    look.promptText = palette.color(QPalette::Disabled, QPalette::Text);
    if (enabled)
        look.promptText = legible(look.promptText, palette.color(QPalette::Active, QPalette::Text),
                                  style == 1 ? button : base);
    look.focusRing = palette.color(QPalette::Active, QPalette::Highlight);
    look.focusRing.setAlphaF(static_cast<float>(FocusRingAlpha));
    return look;
}

} // namespace tarnwick
