// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

#include <optional>

namespace tarnwick {

/// A title with the few attributes that menus draw. An attribute that is not set is drawn as the menu's own.
struct AttributedTitle
{
    QString text;
    std::optional<QFont> font;
    /// In hundredths of the font size; a negative one fills and outlines, which looks emboldened.
    std::optional<double> strokeWidth;

    friend bool operator==(const AttributedTitle&, const AttributedTitle&) = default;
};

} // namespace tarnwick
