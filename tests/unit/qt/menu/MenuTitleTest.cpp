// SPDX-License-Identifier: MIT
#include "platform/qt/menu/MenuTitle.h"

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
        EXPECT_EQ(menuActionText(*item, Qt::LeftToRight), row.actionText);
    }
}

TEST(MenuTitle, theKeyEquivalentStandsInTheColumnOfShortcuts)
{
    EXPECT_EQ(menuActionText(*MenuItem::create(u"Save"_s, {}, u"s"_s), Qt::LeftToRight), u"Save\tCtrl+S"_s);
    EXPECT_EQ(menuActionText(*MenuItem::create(u"And"_s, {}, u"&"_s), Qt::LeftToRight), u"And\tCtrl+&&"_s);
}

TEST(MenuTitle, titlesAndKeyEquivalentsRunInTheirOwnDirection)
{
    struct Row
    {
        QString title;
        QString key;
        Qt::LayoutDirection menu;
        QString actionText;
    };
    const Row rows[] = {
        {u"Open..."_s, u"+"_s, Qt::LeftToRight, u"Open...\tCtrl++"_s},
        {u"Open..."_s, u"+"_s, Qt::RightToLeft, u"\u2068Open...\u2069\t\u2068Ctrl++\u2069"_s},
        {u"(none)"_s, {}, Qt::RightToLeft, u"\u2068(none)\u2069"_s},
        {u"Save all"_s, u"s"_s, Qt::RightToLeft, u"Save all\tCtrl+S"_s},
        {u"\u05e4\u05ea\u05d7..."_s, {}, Qt::RightToLeft, u"\u05e4\u05ea\u05d7..."_s},
        {u"\u05e4\u05ea\u05d7..."_s, {}, Qt::LeftToRight, u"\u2068\u05e4\u05ea\u05d7...\u2069"_s},
        {{}, {}, Qt::RightToLeft, {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(menuActionText(*MenuItem::create(row.title, {}, row.key), row.menu), row.actionText)
            << row.title.toStdString() << ' ' << row.menu;
}

TEST(MenuTitle, anItemWithASubmenu_drawsNoKeyEquivalent)
{
    const auto item = MenuItem::create(u"Recent"_s, {}, u"r"_s);
    item->setSubmenu(Menu::create(u"Recent"_s));
    EXPECT_EQ(menuActionText(*item, Qt::LeftToRight), u"Recent"_s);
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
