// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPalette>
#include <QProxyStyle>

namespace tarnwick {

/// The desktop's style, but that a menu higher than the screen scrolls instead of growing more columns, and
/// that disabled entries can be read on every palette.
///
/// Arrows of the same colours are drawn with one palette: each menu, and each highlighted entry, has a
/// palette of its own, and under that the desktop's style would keep a picture of the arrow for every menu
/// that was ever open.
class MenuStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

private:
    [[nodiscard]] const QPalette& _knownAs(const QPalette& palette) const;

    mutable QList<QPalette> _palettes;
};

} // namespace tarnwick
