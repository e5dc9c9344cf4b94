// SPDX-License-Identifier: MIT
#include "platform/qt/application/Look.h"

#include <QApplication>

#include <algorithm>

namespace tarnwick {

namespace {

bool fits(const QPalette& palette, const Look& look)
{
    if (look.paletteStandsIn)
        return isDark(palette) == isDark(*look.palette);
    constexpr QPalette::ColorRole Roles[] = {QPalette::Window, QPalette::WindowText, QPalette::Base,
                                             QPalette::Highlight, QPalette::Button};
    return std::all_of(std::begin(Roles), std::end(Roles), [&](QPalette::ColorRole role) {
        return palette.color(role) == look.palette->color(role);
    });
}

bool looksLike(const QFont& one, const QFont& other)
{
    return one.family() == other.family() && one.pointSizeF() == other.pointSizeF() &&
           one.weight() == other.weight() && one.italic() == other.italic();
}

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void applyLook(const Look& look)
{
    if (look.palette) {
        QApplication::setPalette({}); // the toolkit's own
        if (!fits(QApplication::palette(), look))
            QApplication::setPalette(*look.palette);
    } else if (QCoreApplication::testAttribute(Qt::AA_SetPalette)) {
        QApplication::setPalette({}); // nobody tells colours any more
    }
    if (look.font && !looksLike(QApplication::font(), *look.font))
        QApplication::setFont(*look.font); // takes the fonts of the classes back
    for (const char* menu : {"QMenu", "QMenuBar"})
        if (look.menuFont && !looksLike(QApplication::font(menu), *look.menuFont))
            QApplication::setFont(*look.menuFont, menu);
}

} // namespace tarnwick
