// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace tarnwick {

/// The desktop's style, but that a menu higher than the screen scrolls instead of growing more columns, and
/// that disabled entries can be read on every palette.
class MenuStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace tarnwick
