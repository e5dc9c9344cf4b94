// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiNormalForm.h"

#include "platform/linux/atspi/AtspiConstants.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace tarnwick::atspi;
using namespace Qt::StringLiterals;

namespace {

constexpr quint64 bit(State state)
{
    return quint64{1} << state;
}

constexpr quint64 Usable = bit(StateSensitive) | bit(StateEnabled) | bit(StateVisible);

BusReference reference(const char* path)
{
    return {":1.7", path, 1};
}

AtspiFacts item(quint32 role, const QString& name, quint64 states = Usable, const QString& keyBinding = {})
{
    AtspiFacts facts;
    facts.reference = reference("/item");
    facts.role = role;
    facts.name = name;
    facts.states = states;
    facts.keyBinding = keyBinding;
    return facts;
}

AtspiFacts holder(const QString& name, const char* child)
{
    AtspiFacts facts = item(RoleMenuItem, name);
    facts.firstChild = reference(child);
    return facts;
}

QStringList titles(const QList<AtspiFacts>& items, AtspiToolkit toolkit = AtspiToolkit::Gtk,
                   MenuLevel level = MenuLevel::Menu)
{
    QStringList found;
    for (const MenuRow& row : normalForm(items, toolkit, level))
        found.append(row.kind == MenuRow::Kind::Separator ? u"---"_s : row.title);
    return found;
}

MenuRow only(const AtspiFacts& facts, AtspiToolkit toolkit = AtspiToolkit::Gtk)
{
    const auto rows = normalForm({facts}, toolkit, MenuLevel::Menu);
    EXPECT_EQ(rows.size(), 1);
    return rows.value(0);
}

} // namespace

TEST(AtspiNormalForm, titles_areTrimmedAndCutAtATab)
{
    const std::pair<QString, QString> rows[] = {
        {u"New      "_s, u"New"_s}, {u"  New"_s, u"New"_s},           {u"New\tCtrl+N"_s, u"New"_s},
        {u"New \t"_s, u"New"_s},    {u"R&D_Notes"_s, u"R&D_Notes"_s}, {u"-"_s, u"-"_s},
    };
    for (const auto& [name, title] : rows)
        EXPECT_EQ(titles({item(RoleMenuItem, name)}), QStringList(title)) << name.toStdString();
}

TEST(AtspiNormalForm, everyItemRole_isAnItem)
{
    for (const quint32 role : {RoleMenuItem, RoleCheckMenuItem, RoleRadioMenuItem, RoleCheckBox})
        EXPECT_EQ(only(item(role, u"Wrap"_s)).kind, MenuRow::Kind::Item) << role;
}

TEST(AtspiNormalForm, whatIsNoItem_isLeftOut)
{
    const AtspiFacts rows[] = {
        item(RoleTearoffMenuItem, u"Tear off"_s),
        item(RoleMenuItem, {}),
        item(RoleMenuItem, u" \tCtrl+N"_s),
        item(RoleMenu, {}),
        item(RoleText, u"Search"_s),
        item(RolePopupMenu, u"Menu"_s),
        AtspiFacts{}, // nothing has come
    };
    for (const AtspiFacts& facts : rows)
        EXPECT_TRUE(titles({facts, item(RoleMenuItem, u"Other"_s)}) == QStringList(u"Other"_s));
}

TEST(AtspiNormalForm, separators_haveNoTitleAndStandInMenusOnly)
{
    const AtspiFacts separator = item(RoleSeparator, u"a heading"_s);
    const MenuRow row = only(separator);
    EXPECT_EQ(row.kind, MenuRow::Kind::Separator);
    EXPECT_TRUE(row.title.isEmpty());
    EXPECT_EQ(titles({separator}, AtspiToolkit::Gtk, MenuLevel::Bar), QStringList());
}

TEST(AtspiNormalForm, hiddenItems_areLeftOutAsEachToolkitTells)
{
    const AtspiFacts seen = item(RoleMenuItem, u"Seen"_s);
    const AtspiFacts hidden = item(RoleMenuItem, u"Hidden"_s, Usable & ~bit(StateVisible));
    const QStringList both{u"Seen"_s, u"Hidden"_s};
    EXPECT_EQ(titles({seen, hidden}, AtspiToolkit::Gtk), QStringList(u"Seen"_s));
    EXPECT_EQ(titles({seen, hidden}, AtspiToolkit::Bridge), QStringList(u"Seen"_s));
    EXPECT_EQ(titles({seen, hidden}, AtspiToolkit::Unknown), QStringList(u"Seen"_s));
    EXPECT_EQ(titles({seen, hidden}, AtspiToolkit::Qt), both) << "closed menus are never visible there";
    EXPECT_EQ(titles({seen, hidden}, AtspiToolkit::Qt, MenuLevel::Bar), QStringList(u"Seen"_s));
    EXPECT_EQ(titles({hidden}, AtspiToolkit::Qt, MenuLevel::Bar), QStringList(u"Hidden"_s))
        << "the bar may be hidden, its entries are not";

    EXPECT_EQ(titles({hidden}, AtspiToolkit::Gtk), QStringList()) << "all may be hidden";
    EXPECT_EQ(titles({hidden}, AtspiToolkit::Bridge), QStringList(u"Hidden"_s))
        << "or the state is not told in a closed menu";
    EXPECT_EQ(titles({item(RoleSeparator, {}, 0), seen}, AtspiToolkit::Gtk), QStringList(u"Seen"_s));

    AtspiFacts unknown = seen;
    unknown.states.reset();
    EXPECT_EQ(titles({unknown, seen}, AtspiToolkit::Gtk), (QStringList{u"Seen"_s, u"Seen"_s}));
}

TEST(AtspiNormalForm, whatWouldTakeNoRoomInAMenuOfQt_isHidden)
{
    const auto sized = [](AtspiFacts facts, std::optional<bool> hasArea) {
        facts.states = bit(StateSensitive);
        facts.hasArea = hasArea;
        return facts;
    };
    const AtspiFacts open = item(RoleMenuItem, u"Open"_s);
    const AtspiFacts run = item(RoleMenuItem, u"Run"_s);
    const AtspiFacts separator = item(RoleSeparator, {});
    EXPECT_EQ(titles({sized(open, true), sized(separator, true), sized(run, false)}, AtspiToolkit::Qt),
              (QStringList{u"Open"_s, u"---"_s}));
    EXPECT_EQ(titles({sized(open, true), sized(separator, false), sized(run, true)}, AtspiToolkit::Qt),
              (QStringList{u"Open"_s, u"Run"_s}))
        << "a separator between hidden items";
    EXPECT_EQ(titles({sized(open, true), sized(run, std::nullopt)}, AtspiToolkit::Qt),
              (QStringList{u"Open"_s, u"Run"_s}))
        << "what has not come hides nothing";
    EXPECT_EQ(titles({sized(open, false), sized(run, false)}, AtspiToolkit::Qt),
              (QStringList{u"Open"_s, u"Run"_s}))
        << "a menu that was not laid out";
}

TEST(AtspiNormalForm, enabled_isSensitive_orEnabledWhereNothingIsSensitive)
{
    const auto enabled = [](const QList<quint64>& states) {
        QList<AtspiFacts> items;
        for (const quint64 one : states)
            items.append(item(RoleMenuItem, u"Item"_s, one));
        QList<bool> result;
        for (const MenuRow& row : normalForm(items, AtspiToolkit::Qt, MenuLevel::Menu))
            result.append(row.enabled);
        return result;
    };
    EXPECT_EQ(enabled({bit(StateSensitive), 0}), (QList<bool>{true, false}));
    EXPECT_EQ(enabled({bit(StateSensitive), bit(StateEnabled)}), (QList<bool>{true, false}));
    EXPECT_EQ(enabled({bit(StateEnabled), 0}), (QList<bool>{true, false}));

    AtspiFacts unknown = item(RoleMenuItem, u"Item"_s);
    unknown.states.reset();
    EXPECT_FALSE(only(unknown).enabled) << "what has not come disables";
}

TEST(AtspiNormalForm, checked_isTheState)
{
    EXPECT_TRUE(only(item(RoleMenuItem, u"Wrap"_s, Usable | bit(StateChecked))).checked);
    EXPECT_FALSE(only(item(RoleCheckMenuItem, u"Wrap"_s)).checked);
}

TEST(AtspiNormalForm, holders_pointAtTheirContents)
{
    const MenuRow gtk = only(item(RoleMenu, u"Recent"_s, Usable, u";;<Primary>r"_s));
    EXPECT_EQ(gtk.kind, MenuRow::Kind::Holder);
    EXPECT_EQ(gtk.contents, gtk.item) << "the menu between is made up";
    EXPECT_FALSE(gtk.shortcut) << "a holder has no shortcut";

    const MenuRow qt = only(holder(u"Recent"_s, "/popup"), AtspiToolkit::Qt);
    EXPECT_EQ(qt.kind, MenuRow::Kind::Holder);
    EXPECT_EQ(qt.contents, reference("/popup")) << "the menu between is the toolkit's own";

    AtspiFacts leaf = item(RoleMenuItem, u"New"_s);
    leaf.firstChild = BusReference{};
    EXPECT_EQ(only(leaf, AtspiToolkit::Qt).kind, MenuRow::Kind::Item);
}

TEST(AtspiNormalForm, shortcuts_areThoseOfTheToolkit)
{
    EXPECT_EQ(only(item(RoleMenuItem, u"New"_s, Usable, u"n;;<Primary>n"_s)).shortcut,
              (MenuShortcut{u"N"_s, {}, 0}));
    EXPECT_EQ(only(item(RoleMenuItem, u"New"_s, Usable, u"Ctrl+N"_s), AtspiToolkit::Qt).shortcut,
              (MenuShortcut{u"N"_s, {}, 0}));
    EXPECT_FALSE(only(item(RoleMenuItem, u"New"_s, Usable, u"Alt+N"_s), AtspiToolkit::Qt).shortcut);
    EXPECT_FALSE(only(item(RoleMenuItem, u"Find Next"_s, Usable, u";;F3"_s)).shortcut);
}

TEST(AtspiNormalForm, questions_areNoMoreThanTheToolkitNeeds)
{
    using Q = AtspiQuestion;
    EXPECT_EQ(itemQuestions(AtspiToolkit::Gtk, MenuLevel::Menu),
              (QList<Q>{Q::Name, Q::Role, Q::States, Q::KeyBinding}));
    EXPECT_EQ(itemQuestions(AtspiToolkit::Bridge, MenuLevel::Menu),
              (QList<Q>{Q::Name, Q::Role, Q::States, Q::KeyBinding}));
    EXPECT_EQ(itemQuestions(AtspiToolkit::Qt, MenuLevel::Menu),
              (QList<Q>{Q::Name, Q::Role, Q::States, Q::KeyBinding, Q::FirstChild, Q::Area}));
    EXPECT_EQ(itemQuestions(AtspiToolkit::Gtk, MenuLevel::Bar), (QList<Q>{Q::Name, Q::Role, Q::States}));
    EXPECT_EQ(itemQuestions(AtspiToolkit::Qt, MenuLevel::Bar),
              (QList<Q>{Q::Name, Q::Role, Q::States, Q::FirstChild}));
}

TEST(AtspiNormalForm, aMenuInBetween_isOneUntitledOnlyChild)
{
    EXPECT_EQ(menuInBetween({item(RolePopupMenu, u"File"_s)}), reference("/item"));
    EXPECT_EQ(menuInBetween({item(RoleMenu, {})}), reference("/item"));
    EXPECT_FALSE(menuInBetween({item(RoleMenu, u"Open Recent"_s)})) << "a menu may hold one submenu only";
    EXPECT_FALSE(menuInBetween({item(RoleMenu, {}), item(RoleMenuItem, u"New"_s)}));
    EXPECT_FALSE(menuInBetween({item(RoleMenuItem, {})}));
    EXPECT_FALSE(menuInBetween({}));
    AtspiFacts nameless = item(RoleMenu, {});
    nameless.name.reset();
    EXPECT_FALSE(menuInBetween({nameless})) << "a name that has not come may be any";
}
