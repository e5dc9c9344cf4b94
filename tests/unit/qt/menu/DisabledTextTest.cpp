// SPDX-License-Identifier: MIT
#include "platform/qt/menu/DisabledText.h"

#include "platform/qt/menu/MenuStyle.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

QPalette paletteOf(const QColor& ground, const QColor& text, const QColor& disabled)
{
    QPalette palette(text, ground, text, ground, ground, text, ground);
    palette.setColor(QPalette::Button, ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    for (const auto role : {QPalette::Base, QPalette::Window})
        palette.setColor(role, ground);
    return palette;
}

TEST(DisabledText, isChangedWhereItCanHardlyBeRead_only)
{
    struct Row
    {
        const char* name;
        QColor ground, text, disabled, expected;
    };
    const Row rows[] = {
        {"black on black", Qt::black, Qt::white, Qt::black, {127, 127, 127}},
        {"white on white", Qt::white, Qt::black, Qt::white, {127, 127, 127}},
        {"dark on dark", {29, 29, 32}, {240, 240, 240}, {50, 50, 55}, {134, 134, 136}},
        {"the usual light grey", Qt::white, Qt::black, {190, 190, 190}, {190, 190, 190}},
        {"grey on dark", {29, 29, 32}, {240, 240, 240}, {160, 160, 160}, {160, 160, 160}},
        {"green on black", Qt::black, Qt::white, {0, 255, 0}, {0, 255, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const QPalette palette = withLegibleDisabledText(paletteOf(row.ground, row.text, row.disabled));
        for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
            EXPECT_EQ(palette.color(QPalette::Disabled, role), row.expected);
            EXPECT_EQ(palette.color(QPalette::Active, role), row.text);
        }
    }
}

TEST(DisabledText, ofAMenu_isSeenOnABlackPalette)
{
    const MenuStyle style(u"fusion"_s);
    QStyleOptionMenuItem item;
    item.palette = paletteOf(Qt::black, Qt::white, Qt::black);
    item.menuItemType = QStyleOptionMenuItem::Normal;
    item.text = u"Undo"_s;
    item.rect = {0, 0, 120, 24};
    item.menuRect = item.rect;
    QImage image(item.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    style.drawControl(QStyle::CE_MenuItem, &item, &painter, nullptr);
    painter.end();
    QImage black(image.size(), image.format());
    black.fill(Qt::black);
    EXPECT_NE(image, black);
}

} // namespace
