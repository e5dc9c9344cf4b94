// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace tarnwick {

/// `fraction` of `other` in `color`; what is transparent stays so.
[[nodiscard]] inline QColor blended(const QColor& color, double fraction, const QColor& other)
{
    const auto mix = [fraction](double one, double two) {
        return static_cast<float>(one * (1 - fraction) + two * fraction);
    };
    return QColor::fromRgbF(mix(color.redF(), other.redF()), mix(color.greenF(), other.greenF()),
                            mix(color.blueF(), other.blueF()), mix(color.alphaF(), other.alphaF()));
}

/// `level` of the way to black or to white.
[[nodiscard]] inline QColor shadowed(const QColor& color, double level)
{
    return blended(color, level, Qt::black);
}

[[nodiscard]] inline QColor highlighted(const QColor& color, double level)
{
    return blended(color, level, Qt::white);
}

} // namespace tarnwick
