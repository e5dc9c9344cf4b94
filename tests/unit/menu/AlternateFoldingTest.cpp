// SPDX-License-Identifier: MIT
#include "menu/AlternateFolding.h"

#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 Command = CommandKeyMask;
constexpr quint64 Option = AlternateKeyMask;
constexpr quint64 Shift = ShiftKeyMask;
constexpr quint64 Control = ControlKeyMask;

struct Item
{
    QString title; ///< empty for a separator
    QString key;
    quint64 mask;
    bool alternate;
};

struct Row
{
    const char* sentence;
    QList<Item> items;
    quint64 held;
    QStringList shown;
};

QStringList shownTitles(const Row& row)
{
    const auto menu = Menu::create(u"Menu"_s);
    for (const Item& written : row.items) {
        const auto item =
            written.title.isEmpty() ? MenuItem::separatorItem() : MenuItem::create(written.title);
        item->setKeyEquivalent(written.key);
        item->setKeyEquivalentModifierMask(written.mask);
        item->setAlternate(written.alternate);
        menu->addItem(item);
    }
    QStringList titles;
    for (const auto& item : itemsShownWithModifiers(*menu, row.held))
        titles.append(item->title());
    return titles;
}

const Item Close{u"Close"_s, u"w"_s, Command, false};
const Item CloseAll{u"Close All"_s, u"w"_s, Command | Option, true};
const Item CloseOthers{u"Close Others"_s, u"w"_s, Command | Option | Shift, true};
const Item Quit{u"Quit"_s, u"q"_s, Command, false};

} // namespace

TEST(AlternateFolding, itemsShown_followTheHeldModifiers)
{
    const Row rows[] = {
        {"an empty menu shows nothing", {}, 0, {}},
        {"without modifiers the item is shown", {Close, CloseAll, Quit}, 0, {u"Close"_s, u"Quit"_s}},
        {"its modifier brings the alternate", {Close, CloseAll, Quit}, Option, {u"Close All"_s, u"Quit"_s}},
        {"Command held besides does not matter",
         {Close, CloseAll, Quit},
         Command | Option,
         {u"Close All"_s, u"Quit"_s}},
        {"Command alone brings the item", {Close, CloseAll}, Command, {u"Close"_s}},
        {"one modifier too many brings the item", {Close, CloseAll}, Option | Control, {u"Close"_s}},
        {"another modifier brings the item", {Close, CloseAll}, Shift, {u"Close"_s}},
        {"the function key does not matter", {Close, CloseAll}, Option | FunctionKeyMask, {u"Close All"_s}},
        {"two alternates fold into one item", {Close, CloseAll, CloseOthers}, 0, {u"Close"_s}},
        {"the second alternate has its turn",
         {Close, CloseAll, CloseOthers},
         Option | Shift,
         {u"Close Others"_s}},
        {"an alternate without Command is reached as well",
         {Close, {u"Close It"_s, u"w"_s, Option, true}},
         Option,
         {u"Close It"_s}},
        {"an alternate of the same modifiers, Command aside, replaces its item",
         {{u"Go"_s, u"g"_s, Command, false}, {u"Go Back"_s, u"g"_s, 0, true}},
         0,
         {u"Go Back"_s}},
        {"a different key equivalent is an item of its own",
         {Close, {u"Zoom"_s, u"z"_s, Command | Option, true}},
         0,
         {u"Close"_s, u"Zoom"_s}},
        {"the same mask is an item of its own",
         {Close, {u"Close Again"_s, u"w"_s, Command, true}},
         0,
         {u"Close"_s, u"Close Again"_s}},
        {"without key equivalents the masks decide",
         {{u"A"_s, u""_s, Command, false}, {u"B"_s, u""_s, Command | Option, true}},
         Option,
         {u"B"_s}},
        {"what is no alternate never folds",
         {Close, {u"Close All"_s, u"w"_s, Command | Option, false}},
         0,
         {u"Close"_s, u"Close All"_s}},
        {"the first item has nothing to fold into", {CloseAll, Quit}, 0, {u"Close All"_s, u"Quit"_s}},
        {"a separator takes nothing in",
         {{u""_s, u""_s, Command, false}, {u"B"_s, u""_s, Command | Option, true}},
         0,
         {u""_s, u"B"_s}},
        {"only the item right before counts",
         {Close, Quit, CloseAll},
         0,
         {u"Close"_s, u"Quit"_s, u"Close All"_s}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shownTitles(row), row.shown) << row.sentence;
}
