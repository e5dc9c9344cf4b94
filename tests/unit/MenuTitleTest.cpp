// SPDX-License-Identifier: MIT
#include "platform/qt/MenuTitle.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

TEST(MenuTitle, titlesAreDrawnAsTheyStandOnOneLine)
{
    struct Row
    {
        QString title;
        QString drawn;
        QString actionText;
    };
    const Row rows[] = {
        {u"Save"_s, u"Save"_s, u"Save"_s},
        {u"R&D"_s, u"R&D"_s, u"R&&D"_s},
        {u"&&"_s, u"&&"_s, u"&&&&"_s},
        {u"one\ttwo"_s, u"one    two"_s, u"one    two"_s},
        {u"one\ntwo\r\nthree\rfour"_s, u"one two three four"_s, u"one two three four"_s},
        {u"one\u2028two\u2029three"_s, u"one two three"_s, u"one two three"_s},
    };
    for (const Row& row : rows) {
        const auto item = MenuItem::create(row.title);
        EXPECT_EQ(drawnTitle(*item), row.drawn);
        EXPECT_EQ(menuActionText(*item), row.actionText);
    }
}

TEST(MenuTitle, theKeyEquivalentStandsInTheColumnOfShortcuts)
{
    EXPECT_EQ(menuActionText(*MenuItem::create(u"Save"_s, {}, u"s"_s)), u"Save\tCtrl+S"_s);
    EXPECT_EQ(menuActionText(*MenuItem::create(u"And"_s, {}, u"&"_s)), u"And\tCtrl+&&"_s);
}

TEST(MenuTitle, anItemWithASubmenu_drawsNoKeyEquivalent)
{
    const auto item = MenuItem::create(u"Recent"_s, {}, u"r"_s);
    item->setSubmenu(Menu::create(u"Recent"_s));
    EXPECT_EQ(menuActionText(*item), u"Recent"_s);
}

TEST(MenuTitle, anAttributedTitle_isDrawnInPlaceOfThePlainOne)
{
    const auto item = MenuItem::create(u"plain"_s);
    item->setAttributedTitle(AttributedTitle{u"attributed"_s, {}, {}});
    EXPECT_EQ(drawnTitle(*item), u"attributed"_s);
}

TEST(MenuTitle, fontsAreTheTitlesOwnOrTheMenus)
{
    QFont menuFont;
    menuFont.setPointSize(7);
    QFont own;
    own.setPointSize(20);
    const auto item = MenuItem::create(u"title"_s);
    EXPECT_EQ(menuItemFont(*item, menuFont), menuFont);
    item->setAttributedTitle(AttributedTitle{u"title"_s, own, {}});
    EXPECT_EQ(menuItemFont(*item, menuFont), own);
    item->setAttributedTitle(AttributedTitle{u"title"_s, {}, 1.0});
    EXPECT_EQ(menuItemFont(*item, menuFont), menuFont);
}

TEST(MenuTitle, aFilledAndOutlinedTitle_isBold)
{
    const auto item = MenuItem::create(u"title"_s);
    item->setAttributedTitle(AttributedTitle{u"title"_s, {}, -1.0});
    EXPECT_TRUE(menuItemFont(*item, QFont()).bold());
}

} // namespace
} // namespace tarnwick
