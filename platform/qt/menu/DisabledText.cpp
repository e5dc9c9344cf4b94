// SPDX-License-Identifier: MIT
#include "platform/qt/menu/DisabledText.h"

#include <algorithm>
#include <cmath>

namespace tarnwick {

namespace {

constexpr double LeastContrast = 1.7; ///< 1 is none, 21 is black on white

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(double(color.redF())) + 0.7152 * linear(double(color.greenF())) +
           0.0722 * linear(double(color.blueF()));
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor halfway(const QColor& one, const QColor& other)
{
    return QColor::fromRgb((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                           (one.blue() + other.blue()) / 2);
}

} // namespace

QPalette withLegibleDisabledText(QPalette palette)
{
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
        {QPalette::Text, QPalette::Base},
        {QPalette::WindowText, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button},
    };
    for (const auto& [text, ground] : pairs) {
        const QColor behind = palette.color(QPalette::Active, ground);
        if (contrast(palette.color(QPalette::Disabled, text), behind) < LeastContrast)
            palette.setColor(QPalette::Disabled, text,
                             halfway(palette.color(QPalette::Active, text), behind));
    }
    return palette;
}

} // namespace tarnwick
