// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtFonts.h"

#include <QApplication>
#include <QFontInfo>

namespace tarnwick {

namespace {

// Labels and small controls stand to the text of the interface as 10 and 11 points stand to 13.
constexpr double LabelShare = 10.0 / 13.0;
constexpr double SmallShare = 11.0 / 13.0;

QFont ofSize(QFont font, double size)
{
    if (size > 0)
        font.setPointSizeF(size);
    return font;
}

double systemSize()
{
    return QFontInfo(QApplication::font()).pointSizeF();
}

} // namespace

QFont QtFonts::menuBarFontOfSize(double size) const
{
    return ofSize(QApplication::font("QMenuBar"), size);
}

QFont QtFonts::menuFontOfSize(double size) const
{
    return ofSize(QApplication::font("QMenu"), size);
}

QFont QtFonts::systemFontOfSize(double size) const
{
    return ofSize(QApplication::font(), size);
}

double QtFonts::labelFontSize() const
{
    return systemSize() * LabelShare;
}

double QtFonts::smallSystemFontSize() const
{
    return systemSize() * SmallShare;
}

QFont QtFonts::convertFontToHaveTrait(const QFont& font, Trait trait) const
{
    QFont converted = font;
    if (trait == BoldTrait)
        converted.setBold(true);
    return converted;
}

} // namespace tarnwick
