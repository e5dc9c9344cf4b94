// SPDX-License-Identifier: MIT
// What applications export for a menu bar outside their windows, read and made into the entries that are
// shown.
#include "platform/linux/dbusmenu/DbusMenuDecode.h"
#include "platform/linux/dbusmenu/DbusMenuHabits.h"
#include "platform/linux/dbusmenu/DbusMenuNormalForm.h"
#include "platform/linux/dbusmenu/DbusMenuPlace.h"
#include "tests/unit/linux/bus/MessageTest.h"

#include <functional>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// Appends the properties of one entry.
using Fill = std::function<void(sd_bus_message*)>;

void property(sd_bus_message* message, const char* name, const char* type, auto... value)
{
    sd_bus_message_open_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv");
    sd_bus_message_append(message, "s", name);
    sd_bus_message_append(message, "v", type, value...);
    sd_bus_message_close_container(message);
}

class DbusMenusTest : public MessageTest
{
protected:
    static void openEntry(sd_bus_message* message, qint32 number, const Fill& fill)
    {
        sd_bus_message_open_container(message, SD_BUS_TYPE_STRUCT, "ia{sv}av");
        sd_bus_message_append(message, "i", number);
        sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "{sv}");
        fill(message);
        sd_bus_message_close_container(message);
        sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "v");
    }
    static void closeEntry(sd_bus_message* message)
    {
        sd_bus_message_close_container(message);
        sd_bus_message_close_container(message);
    }

    /// A layout of these entries, numbered from 1 on, each with `below` entries in it.
    SdBusMessage layout(const QList<Fill>& entries, int below = 0)
    {
        SdBusMessage message = empty();
        sd_bus_message_append(message.get(), "u", 7);
        openEntry(message.get(), 0, [](sd_bus_message*) {});
        for (qsizetype i = 0; i < entries.size(); ++i) {
            sd_bus_message_open_container(message.get(), SD_BUS_TYPE_VARIANT, "(ia{sv}av)");
            openEntry(message.get(), static_cast<qint32>(i) + 1, entries[i]);
            for (int child = 0; child < below; ++child)
                sd_bus_message_append(message.get(), "v", "(ia{sv}av)", 100 + child, 0, 0);
            closeEntry(message.get());
            sd_bus_message_close_container(message.get());
        }
        closeEntry(message.get());
        return sealed(std::move(message));
    }
    QList<MenuRow> rows(const QList<Fill>& entries, int below = 0)
    {
        const auto decoded = dbus_menus::decodeLayout(layout(entries, below).get());
        EXPECT_TRUE(decoded);
        return dbusMenuNormalForm(decoded.value_or(DbusMenuLayout()).entries, {":1.5", "/menu 0", 1});
    }
    MenuRow row(const Fill& entry, int below = 0)
    {
        const QList<MenuRow> all = rows({entry}, below);
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }
    QStringList titles(const QList<Fill>& entries)
    {
        QStringList found;
        for (const MenuRow& one : rows(entries))
            found.append(one.kind == MenuRow::Kind::Separator ? u"---"_s : one.title);
        return found;
    }

    static Fill labelled(
        const char* label, const Fill& more = [](sd_bus_message*) {})
    {
        return [label, more](sd_bus_message* message) {
            property(message, "label", "s", label);
            more(message);
        };
    }
    static Fill separator()
    {
        return [](sd_bus_message* message) { property(message, "type", "s", "separator"); };
    }
};

} // namespace

TEST_F(DbusMenusTest, anEntryWithALabelOnly_isEnabledAndUnmarked)
{
    const MenuRow shown = row(labelled("_Save __as\tCtrl+S"));
    EXPECT_EQ(shown.kind, MenuRow::Kind::Item);
    EXPECT_EQ(shown.title, u"Save _as"_s);
    EXPECT_TRUE(shown.enabled);
    EXPECT_FALSE(shown.checked);
    EXPECT_FALSE(shown.shortcut);
    EXPECT_EQ(shown.item.service, ":1.5");
    EXPECT_EQ(shown.item.connection, 1);
    EXPECT_EQ(DbusMenuPlace::fromPath(shown.item.path),
              (DbusMenuPlace{"/menu", 1, {DbusMenuPlace::mark(u"Save _as"_s)}}));
    EXPECT_FALSE(shown.contents);
}

/// Qt makes an underscore of the first ampersand, unless it is the last character, and doubles none.
TEST_F(DbusMenusTest, underscoresOfQt_areThoseOfTheText_butForOne)
{
    const std::tuple<const char*, QString, QString> rows[] = {
        {"no mnemonic", u"Close"_s, u"Close"_s},
        {"at the beginning", u"_File"_s, u"File"_s},
        {"within a word, where it may be of the text", u"E_xit"_s, u"Exit"_s},
        {"at the beginning of a word", u"Save _As"_s, u"Save As"_s},
        {"in brackets", u"\u6587\u4EF6(_F)"_s, u"\u6587\u4EF6(F)"_s},
        {"before one of the text", u"_1 my_long_name.txt"_s, u"1 my_long_name.txt"_s},
        {"behind one of the text", u"my_file: _open"_s, u"my_file: open"_s},
        {"none among several of the text", u"my_long_name.txt"_s, u"my_long_name.txt"_s},
        {"two of the text", u"__init__"_s, u"__init__"_s},
        {"two of the text within a word", u"notes__1.txt"_s, u"notes__1.txt"_s},
        {"one of the text at the end", u"_Insert _"_s, u"Insert _"_s},
        {"nothing else at the end", u"Insert _"_s, u"Insert _"_s},
        {"an ampersand", u"Search _& Replace"_s, u"Search & Replace"_s},
        {"an ampersand behind the mnemonic", u"_Search && Replace"_s, u"Search & Replace"_s},
        {"one of the text behind an ampersand", u"Search _& Replace in my_file"_s,
         u"Search & Replace in my_file"_s},
        {"an ampersand alone", u"&"_s, u""_s},
        {"with what follows a tab", u"_Copy\tCtrl+_"_s, u"Copy"_s},
        {"nothing", u""_s, u""_s},
    };
    const auto habits = DbusMenuHabits::of({"/MenuBar/3"});
    for (const auto& [sentence, label, title] : rows)
        EXPECT_EQ(habits.titleOf(label), title) << sentence;
    for (const QByteArray path : {"/com/canonical/menu/0", "/MenuBar", "/menu"})
        EXPECT_EQ(DbusMenuHabits::of({path}).titleOf(u"my__file_"_s), u"my_file"_s) << path.constData();
}

TEST_F(DbusMenusTest, menusOfStandIns_areYetToBeMade)
{
    const auto isYetToBeMade = [this](const QList<Fill>& entries) {
        return isUnmade(*dbus_menus::decodeLayout(layout(entries).get()));
    };
    EXPECT_TRUE(isYetToBeMade({}));
    EXPECT_TRUE(isYetToBeMade({labelled(""), labelled("Label Empty")}));
    EXPECT_FALSE(isYetToBeMade({labelled("Label Empty"), labelled("A")}));
    EXPECT_FALSE(isYetToBeMade({separator()}));
    EXPECT_FALSE(isYetToBeMade({labelled("A", [](auto* m) { property(m, "visible", "b", 0); })}))
        << "it is made, and hidden";
}

TEST_F(DbusMenusTest, properties_greyMarkAndHide)
{
    const auto toggle = [](const char* type, int state) {
        return labelled("A", [=](sd_bus_message* message) {
            property(message, "toggle-type", "s", type);
            property(message, "toggle-state", "i", state);
        });
    };
    EXPECT_FALSE(row(labelled("A", [](auto* m) { property(m, "enabled", "b", 0); })).enabled);
    EXPECT_TRUE(row(toggle("checkmark", 1)).checked);
    EXPECT_TRUE(row(toggle("radio", 1)).checked);
    EXPECT_FALSE(row(toggle("checkmark", 0)).checked);
    EXPECT_FALSE(row(toggle("checkmark", -1)).checked) << "neither on nor off";
    EXPECT_FALSE(row(toggle("", 1)).checked) << "no toggle";
    EXPECT_EQ(titles({labelled("A", [](auto* m) { property(m, "visible", "b", 0); }), labelled("B"),
                      labelled(""), labelled("_"), labelled("Label Empty")}),
              QStringList(u"B"_s));
}

TEST_F(DbusMenusTest, submenus_areHoldersWhoseContentsAreTheirOwn)
{
    const MenuRow told = row(labelled("More", [](auto* m) {
        property(m, "children-display", "s", "submenu");
        property(m, "toggle-type", "s", "checkmark");
        property(m, "toggle-state", "i", 1);
    }));
    EXPECT_EQ(told.kind, MenuRow::Kind::Holder);
    EXPECT_EQ(told.contents, told.item);
    EXPECT_FALSE(told.checked);
    EXPECT_EQ(row(labelled("More"), 2).kind, MenuRow::Kind::Holder)
        << "it does not say so, but holds entries";
}

TEST_F(DbusMenusTest, separators_standBetweenWhatIsSeen)
{
    const Fill hidden = labelled("X", [](auto* m) { property(m, "visible", "b", 0); });
    EXPECT_EQ(
        titles({separator(), labelled("A"), separator(), hidden, separator(), labelled("B"), separator()}),
        (QStringList{u"A"_s, u"---"_s, u"B"_s}));
    EXPECT_EQ(titles({separator(), hidden}), QStringList());
}

TEST_F(DbusMenusTest, oneStroke_isAShortcut)
{
    const auto shortcut = [&](int strokes, auto... names) {
        return row(labelled("A", [=](auto* m) { property(m, "shortcut", "aas", strokes, names...); }))
            .shortcut;
    };
    EXPECT_EQ(shortcut(1, 2, "Control", "S"), (MenuShortcut{u"S"_s, {}, 0}));
    EXPECT_EQ(shortcut(1, 3, "Control", "Shift", "s"), (MenuShortcut{u"S"_s, {}, 1}));
    EXPECT_EQ(shortcut(1, 2, "Control", "plus"), (MenuShortcut{u"+"_s, {}, 0}));
    EXPECT_EQ(shortcut(1, 2, "Alt", "F4"), (MenuShortcut{{}, 114, 10}));
    EXPECT_FALSE(shortcut(2, 2, "Control", "K", 2, "Control", "S")) << "two strokes";
    EXPECT_FALSE(shortcut(0));
    EXPECT_FALSE(shortcut(1, 0)) << "a stroke of no key";
    EXPECT_FALSE(shortcut(1, 2, "Hyper", "s"));
    EXPECT_FALSE(shortcut(1, 1, "nonsense"));
}

TEST_F(DbusMenusTest, propertiesOfAWrongType_areMissing)
{
    const MenuRow shown = row(labelled("A", [](auto* m) {
        property(m, "enabled", "i", 0);
        property(m, "visible", "s", "no");
        property(m, "type", "i", 3);
        property(m, "toggle-type", "b", 1);
        property(m, "toggle-state", "s", "1");
        property(m, "shortcut", "as", 1, "s");
        property(m, "children-display", "b", 1);
        property(m, "icon-data", "ay", 3, 1, 2, 3);
    }));
    EXPECT_EQ(shown.kind, MenuRow::Kind::Item);
    EXPECT_TRUE(shown.enabled);
    EXPECT_EQ(titles({[](auto* m) { property(m, "label", "i", 1); }, labelled("B")}), QStringList(u"B"_s));
}

TEST_F(DbusMenusTest, repliesOfAWrongType_giveNothing)
{
    EXPECT_FALSE(dbus_menus::decodeLayout(reply("").get()));
    EXPECT_FALSE(dbus_menus::decodeLayout(reply("s", "menu").get()));
    EXPECT_FALSE(dbus_menus::decodeLayout(reply("u", 1).get()));
    EXPECT_FALSE(dbus_menus::decodeLayout(reply("u(is)", 1, 0, "x").get()));
    const auto strange = dbus_menus::decodeLayout(reply("u(ia{sv}av)", 1, 0, 0, 2, "s", "x", "i", 3).get());
    ASSERT_TRUE(strange);
    EXPECT_TRUE(strange->entries.isEmpty());
    const auto mixed = dbus_menus::decodeLayout(
        reply("u(ia{sv}av)", 1, 0, 0, 3, "s", "x", "(ia{sv}av)", 7, 0, 0, "(ia{sv})", 8, 0).get());
    ASSERT_TRUE(mixed);
    ASSERT_EQ(mixed->entries.size(), 1) << "what is no entry takes no other one with it";
    EXPECT_EQ(mixed->entries[0].number, 7);
}

TEST_F(DbusMenusTest, menusOfManyEntriesAndLongLabels_areCut)
{
    EXPECT_EQ(rows(QList<Fill>(12'000, labelled("A"))).size(), dbus_menus::MaximumEntries);
    const QByteArray label(1'000'000, 'x');
    EXPECT_EQ(row(labelled(label.constData())).title.size(), 64 * 1024);
}

TEST_F(DbusMenusTest, whetherAnEntryIsEnabledNow_isInItsProperties)
{
    const auto greyed = dbus_menus::decodeProperties(reply("a(ia{sv})", 1, 7, 1, "enabled", "b", 0).get());
    ASSERT_TRUE(greyed);
    EXPECT_FALSE(greyed->enabled);
    EXPECT_TRUE(dbus_menus::decodeProperties(reply("a(ia{sv})", 1, 7, 0).get())->enabled);
    EXPECT_FALSE(dbus_menus::decodeProperties(reply("a(ia{sv})", 0).get())) << "it is gone";
    EXPECT_FALSE(dbus_menus::decodeProperties(reply("b", 0).get()));
}

TEST_F(DbusMenusTest, places_surviveAsPaths)
{
    const DbusMenuPlace place{"/com/canonical/menu/1C0", -5};
    EXPECT_EQ(DbusMenuPlace::fromPath(place.toPath()), place);
    const DbusMenuPlace below = place.below(3, u"Save as"_s).below(4, QString(100'000, u'x'));
    EXPECT_EQ(DbusMenuPlace::fromPath(below.toPath()), below);
    EXPECT_EQ(below.number, 4);
    EXPECT_EQ(below.way.size(), 2);
    EXPECT_EQ(below.way, place.below(9, u"Save as"_s).below(4, QString(100'000, u'x')).way);
    EXPECT_NE(below.way, place.below(3, u"Save"_s).below(4, QString(100'000, u'x')).way);
    EXPECT_LT(below.toPath().size(), 100) << "long titles are not kept";
    EXPECT_FALSE(DbusMenuPlace::fromPath("/menu"));
    EXPECT_FALSE(DbusMenuPlace::fromPath("/menu x"));
    EXPECT_FALSE(DbusMenuPlace::fromPath(" 1"));
    EXPECT_FALSE(DbusMenuPlace::fromPath(""));
}
