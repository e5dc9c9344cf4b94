// SPDX-License-Identifier: MIT
// What applications export as menus and actions, read and made into the entries that are shown.
#include "platform/linux/gtk/GtkMenuDecode.h"
#include "platform/linux/gtk/GtkMenuNormalForm.h"
#include "tests/contract/linux/gtk/ExportedModel.h"
#include "tests/unit/linux/bus/MessageTest.h"

using namespace tarnwick;
using namespace tarnwick::exported;
using namespace Qt::StringLiterals;

namespace {

constexpr GtkMenuNumber Top{0, 0};

class GtkMenusTest : public MessageTest
{
protected:
    GtkMenus menus(const QList<Menu>& exported)
    {
        SdBusMessage message = empty();
        append(message.get(), exported);
        GtkMenus decoded;
        gtk_menus::decodeMenus(sealed(std::move(message)).get(), decoded);
        return decoded;
    }
    GtkActions actions(const QList<Action>& exported)
    {
        SdBusMessage message = empty();
        append(message.get(), exported);
        return gtk_menus::decodeActions(sealed(std::move(message)).get());
    }

    QList<MenuRow> rows(const QList<Menu>& exported, const QList<Action>& application = {},
                        const QList<Action>& window = {})
    {
        return gtkNormalForm(menus(exported), place,
                             {{"/app", actions(application)}, {"/win", actions(window)}},
                             {":1.5", place.toPath(), 1});
    }
    MenuRow row(const Entry& entry, const QList<Action>& application = {}, const QList<Action>& window = {})
    {
        const QList<MenuRow> all = rows({{Top, {entry}}}, application, window);
        EXPECT_EQ(all.size(), 1);
        return all.value(0);
    }
    /// "---" for a separator.
    QStringList titles(const QList<Menu>& exported, const QList<Action>& application = {})
    {
        QStringList found;
        for (const MenuRow& one : rows(exported, application))
            found.append(one.kind == MenuRow::Kind::Separator ? u"---"_s : one.title);
        return found;
    }

    GtkMenuPlace place{"/menus", "/app", "/win", Top, {}};
};

} // namespace

TEST_F(GtkMenusTest, titles_loseTheirMnemonicAndWhatFollowsATab)
{
    const std::pair<const char*, const char*> labels[] = {
        {"_File", "File"},
        {"Save _As...", "Save As..."},
        {"R&D__x", "R&D_x"},
        {"a___b", "a_b"},
        {"  New   ", "New"},
        {"New\tCtrl+N", "New"},
        {"trailing_", "trailing"},
        {"____", "__"},
        {"\xC3\x84_rger", "\xC3\x84rger"},
    };
    for (const auto& [label, title] : labels)
        EXPECT_EQ(row({{"label", QByteArray(label)}}).title, QString::fromUtf8(title)) << label;
}

TEST_F(GtkMenusTest, entriesWithoutATitle_areLeftOut)
{
    EXPECT_EQ(
        titles(
            {{Top,
              {{{"action", "app.x"}}, {{"label", QByteArray()}}, {{"label", "_"}}, item("Seen", "app.x")}}}),
        QStringList(u"Seen"_s));
}

TEST_F(GtkMenusTest, anAction_enablesAndMarks)
{
    const std::optional<Value> none;
    struct Row
    {
        const char* sentence;
        Entry entry;
        QList<Action> application;
        bool enabled;
        bool checked;
    };
    const Entry big = item("Big", "app.size", {{"target", "big"}});
    const Row table[] = {
        {"an action enables", item("A", "app.a"), {{"a", true, "", none}}, true, false},
        {"a disabled one greys", item("A", "app.a"), {{"a", false, "", none}}, false, false},
        {"a missing one greys", item("A", "app.a"), {}, false, false},
        {"a prefix that is not exported greys", item("A", "text.a"), {{"a", true, "", none}}, false, false},
        {"so does no prefix", item("A", "a"), {{"a", true, "", none}}, false, false},
        {"without an action an entry is as the toolkit shows it", {{"label", "A"}}, {}, true, false},
        {"an action of a wrong type is none", {{"label", "A"}, {"action", 7}}, {}, true, false},
        {"a state of true is a check", item("A", "app.a"), {{"a", true, "", true}}, true, true},
        {"a state of false is none", item("A", "app.a"), {{"a", true, "", false}}, true, false},
        {"a disabled check stays checked", item("A", "app.a"), {{"a", false, "", true}}, false, true},
        {"a state that is no truth is no check", item("A", "app.a"), {{"a", true, "", "on"}}, true, false},
        {"the target that is the state is the chosen one", big, {{"size", true, "s", "big"}}, true, true},
        {"another target is not", big, {{"size", true, "s", "small"}}, true, false},
        {"nor is one of another type", big, {{"size", true, "s", 3}}, true, false},
        {"a disabled choice stays chosen", big, {{"size", false, "s", "big"}}, false, true},
        {"a target without a parameter greys", big, {{"size", true, "", "big"}}, false, false},
        {"a parameter of another type, too", big, {{"size", true, "i", "big"}}, false, false},
        {"a parameter without a target, too", item("A", "app.a"), {{"a", true, "s", true}}, false, false},
        {"a target of an action without a state", big, {{"size", true, "s", none}}, true, false},
        {"a number as the target", item("3", "app.n", {{"target", 3}}), {{"n", true, "i", 3}}, true, true},
        {"a truth as the target",
         item("T", "app.t", {{"target", true}}),
         {{"t", true, "b", true}},
         true,
         true},
    };
    for (const Row& one : table) {
        const MenuRow shown = row(one.entry, one.application);
        EXPECT_EQ(shown.kind, MenuRow::Kind::Item) << one.sentence;
        EXPECT_EQ(shown.enabled, one.enabled) << one.sentence;
        EXPECT_EQ(shown.checked, one.checked) << one.sentence;
    }
}

TEST_F(GtkMenusTest, thePrefix_tellsWhoseActionItIs)
{
    const MenuRow application = row(item("A", "app.view.zoom"), {{"view.zoom", true, "", {}}});
    ASSERT_TRUE(application.action);
    EXPECT_EQ(application.action->path, "/app");
    EXPECT_EQ(application.action->name, "view.zoom");
    EXPECT_FALSE(application.action->target);
    const MenuRow window = row(item("A", "win.zoom", {{"target", 2}}), {}, {{"zoom", true, "i", {}}});
    ASSERT_TRUE(window.action);
    EXPECT_EQ(window.action->path, "/win");
    EXPECT_EQ(window.action->name, "zoom");
    ASSERT_TRUE(window.action->target);
    EXPECT_EQ(window.action->target->signature(), "i");
    place.windowActions.clear();
    EXPECT_FALSE(row(item("A", "win.zoom"), {}, {{"zoom", true, "", {}}}).enabled);
}

TEST_F(GtkMenusTest, whatAModuleExports_hasActionsOfItsOwn)
{
    EXPECT_FALSE(row(item("A", "unity.a")).enabled) << "of a window without the module";
    place.moduleActions = "/module";
    const auto shown = [this](const Entry& entry) {
        const QList<Action> exported{
            {"Save As", true, "", {}}, {"size", true, "s", "big"}, {"More-0", true, "", true}};
        return gtkNormalForm(menus({{Top, {entry}}}), place, {{"/module", actions(exported)}},
                             {":1.5", place.toPath(), 1})
            .value(0);
    };
    const MenuRow plain = shown(item("A", "unity.Save As"));
    ASSERT_TRUE(plain.action);
    EXPECT_TRUE(plain.enabled);
    EXPECT_EQ(plain.action->path, "/module");
    EXPECT_EQ(plain.action->name, "Save As");
    EXPECT_TRUE(shown(item("A", "unity.size", {{"target", "big"}})).checked);
    EXPECT_FALSE(shown(item("A", "unity.size", {{"target", "small"}})).checked);
    const MenuRow holder = shown(submenu("More", {1, 0}, {{"submenu-action", "unity.More-0"}}));
    EXPECT_EQ(holder.kind, MenuRow::Kind::Holder);
    EXPECT_FALSE(holder.action) << "what tells that a submenu opens is never sent";
    EXPECT_EQ(GtkMenuPlace::fromPath(holder.contents.path)->moduleActions, "/module");
}

TEST_F(GtkMenusTest, aNamespace_standsBeforeTheNamesWithinIt)
{
    const QList<Action> application{{"a", true, "", {}}, {"x.a", true, "", {}}};
    const auto shown = rows({{Top, {section({0, 1}, {{"action-namespace", "app"}})}},
                             {{0, 1}, {item("A", "a"), section({0, 2}, {{"action-namespace", "x"}})}},
                             {{0, 2}, {item("B", "a"), submenu("C", {1, 0}, {{"action-namespace", "y"}})}}},
                            application);
    ASSERT_EQ(shown.size(), 3);
    EXPECT_EQ(shown[0].action->name, "a");
    EXPECT_EQ(shown[1].action->name, "x.a");
    EXPECT_EQ(GtkMenuPlace::fromPath(shown[2].contents.path)->actionNamespace, "app.x.y");
}

TEST_F(GtkMenusTest, whatIsHiddenWithItsAction_isLeftOut)
{
    const QList<Action> application{{"on", true, "", {}}, {"off", false, "", {}}, {"typed", true, "s", {}}};
    const std::tuple<const char*, const char*, bool> table[] = {
        {"action-missing", "app.on", true},     {"action-missing", "app.off", true},
        {"action-missing", "app.none", false},  {"action-missing", "app.typed", false},
        {"action-disabled", "app.on", true},    {"action-disabled", "app.off", false},
        {"action-disabled", "app.none", false}, {"macos-menubar", "app.off", true},
    };
    for (const auto& [when, action, seen] : table)
        EXPECT_EQ(
            titles({{Top, {item("A", action, {{"hidden-when", QByteArray(when)}})}}}, application).size(),
            seen ? 1 : 0)
            << when << ' ' << action;
}

TEST_F(GtkMenusTest, separators_standBetweenSectionsThatShowSomething)
{
    const QList<Menu> parts{{{0, 1}, {item("A", "app.a"), item("B", "app.b")}},
                            {{0, 2}, {}},
                            {{0, 3}, {item("C", "app.c")}},
                            {{0, 4}, {item("gone", "app.none", {{"hidden-when", "action-missing"}})}},
                            {{0, 5}, {section({0, 1}), section({0, 3})}}};
    const auto with = [&](const QList<Entry>& entries) {
        return titles(QList<Menu>{{Top, entries}} + parts);
    };
    const Entry heading{{"label", "Heading"}};
    EXPECT_EQ(with({section({0, 1}), section({0, 3})}), (QStringList{u"A"_s, u"B"_s, u"---"_s, u"C"_s}));
    EXPECT_EQ(with({section({0, 1}), section({0, 2}), section({0, 3})}),
              (QStringList{u"A"_s, u"B"_s, u"---"_s, u"C"_s}));
    EXPECT_EQ(with({section({0, 2}), section({0, 3})}), QStringList(u"C"_s));
    EXPECT_EQ(with({section({0, 3}), section({0, 4})}), QStringList(u"C"_s));
    EXPECT_EQ(with({item("X", "app.x"), section({0, 3})}), (QStringList{u"X"_s, u"---"_s, u"C"_s}));
    EXPECT_EQ(with({section({0, 3}), item("X", "app.x")}), (QStringList{u"C"_s, u"X"_s}));
    EXPECT_EQ(with({section({0, 3}, heading)}), (QStringList{u"---"_s, u"C"_s})) << "where the heading is";
    EXPECT_EQ(with({section({0, 2}, heading)}), QStringList());
    EXPECT_EQ(with({section({0, 5})}), (QStringList{u"A"_s, u"B"_s, u"C"_s})) << "not within a section";
    EXPECT_EQ(with({section({9, 9}), section({0, 3})}), QStringList(u"C"_s)) << "one that is not there";
}

TEST_F(GtkMenusTest, sectionsThatLeadInACircle_end)
{
    EXPECT_EQ(titles({{Top, {section({0, 1}), item("End", "app.a")}},
                      {{0, 1}, {item("A", "app.a"), section(Top), section({0, 1}), section({0, 2})}},
                      {{0, 2}, {item("B", "app.a"), section({0, 1})}}}),
              (QStringList{u"A"_s, u"B"_s, u"End"_s}));
    QList<Menu> deep;
    for (quint32 i = 0; i < 1000; ++i)
        deep.append({{0, i}, {item("A", "app.a"), section({0, i + 1})}});
    EXPECT_EQ(titles(deep).size(), SdBusValue::MaximumDepth + 1) << "with one separator";
}

TEST_F(GtkMenusTest, missingSections_areThoseThatWereNotSent)
{
    const GtkMenus sent = menus({{Top, {section({0, 1}), section({2, 0}), submenu("S", {7, 0})}},
                                 {{0, 1}, {section({3, 0}), section(Top)}}});
    const QList<GtkMenuNumber> missing = missingSections(sent, Top);
    EXPECT_EQ(missing.size(), 2);
    EXPECT_TRUE(missing.contains(GtkMenuNumber{2, 0}));
    EXPECT_TRUE(missing.contains(GtkMenuNumber{3, 0}));
    EXPECT_EQ(missingSections(sent, {7, 0}), (QList<GtkMenuNumber>{{7, 0}}));
}

TEST_F(GtkMenusTest, submenus_areHoldersWithoutMarkAndShortcut)
{
    const MenuRow plain = row(submenu("_More", {4, 2}, {{"accel", "<Primary>m"}}));
    EXPECT_EQ(plain.kind, MenuRow::Kind::Holder);
    EXPECT_EQ(plain.title, u"More"_s);
    EXPECT_TRUE(plain.enabled);
    EXPECT_FALSE(plain.shortcut);
    EXPECT_EQ(GtkMenuPlace::fromPath(plain.contents.path),
              (GtkMenuPlace{"/menus", "/app", "/win", {4, 2}, {}}));
    EXPECT_EQ(plain.contents.service, ":1.5");
    const MenuRow greyed = row(submenu("More", {4, 2}, {{"action", "app.a"}}), {{"a", false, "", true}});
    EXPECT_FALSE(greyed.enabled);
    EXPECT_FALSE(greyed.checked);
}

TEST_F(GtkMenusTest, accelerators_areShortcuts)
{
    const auto shortcut = [&](const char* accelerator) {
        return row(item("A", "app.a", {{"accel", QByteArray(accelerator)}})).shortcut;
    };
    EXPECT_EQ(shortcut("<Primary><Shift>s"), (MenuShortcut{u"S"_s, {}, 1}));
    EXPECT_EQ(shortcut("<Control>KP_Add"), (MenuShortcut{u"+"_s, {}, 0}));
    EXPECT_EQ(shortcut("<Alt>F4"), (MenuShortcut{{}, 114, 10}));
    for (const char* none :
         {"F3", "", "<Hyper>s", "nonsense", "<Primary>", "s;;<Primary>s", "<Primary>KP_Enter"})
        EXPECT_FALSE(shortcut(none)) << none;
    EXPECT_FALSE(row({{"label", "A"}, {"accel", 3}}).shortcut);
}

TEST_F(GtkMenusTest, everyEntry_isAnElementOfItsOwn)
{
    const QList<Menu> exported{{Top, {item("A", "app.a"), item("A", "app.a"), section({0, 1})}},
                               {{0, 1}, {item("A", "app.a")}}};
    QSet<BusReference> seen;
    for (const MenuRow& one : rows(exported))
        seen.insert(one.item);
    EXPECT_EQ(seen.size(), 4) << "the separator, too";
    for (const MenuRow& one : rows(exported))
        EXPECT_TRUE(seen.contains(one.item)) << "and the same when it is read again";
}

TEST_F(GtkMenusTest, places_surviveAsPaths)
{
    const GtkMenuPlace full{"/a/menus", "/a", "/a/window/1", {7, 4'000'000'000}, "app.with blank", "/m"};
    EXPECT_EQ(GtkMenuPlace::fromPath(full.toPath()), full);
    const GtkMenuPlace bare{"/a", {}, {}, {}, {}};
    EXPECT_EQ(GtkMenuPlace::fromPath(bare.toPath()), bare);
    EXPECT_FALSE(GtkMenuPlace::fromPath("/a"));
    EXPECT_FALSE(GtkMenuPlace::fromPath(""));
}

TEST_F(GtkMenusTest, repliesOfAWrongType_giveNothing)
{
    GtkMenus decoded;
    gtk_menus::decodeMenus(reply("s", "menus").get(), decoded);
    gtk_menus::decodeMenus(reply("").get(), decoded);
    gtk_menus::decodeMenus(reply("a(uu)", 1, 0, 0).get(), decoded);
    EXPECT_TRUE(decoded.isEmpty());
    EXPECT_TRUE(gtk_menus::decodeActions(reply("as", 1, "a").get()).isEmpty());
    EXPECT_TRUE(gtk_menus::decodeActions(reply("").get()).isEmpty());
    EXPECT_FALSE(gtk_menus::decodeAction(reply("b", 1).get()));
    const auto facts = gtk_menus::decodeAction(reply("(bgav)", 1, "s", 0).get());
    ASSERT_TRUE(facts);
    EXPECT_TRUE(facts->enabled);
    EXPECT_EQ(facts->parameterType, "s");
}

TEST_F(GtkMenusTest, attributesOfAWrongType_areMissing)
{
    const MenuRow shown = row({{"label", "A"},
                               {":submenu", "1 0"},
                               {":section", 5},
                               {"hidden-when", true},
                               {"action-namespace", 1},
                               {"accel", false}});
    EXPECT_EQ(shown.kind, MenuRow::Kind::Item);
    EXPECT_EQ(titles({{Top, {{{"label", 1}}, item("B", "app.b")}}}), QStringList(u"B"_s));
}

TEST_F(GtkMenusTest, menusOfManyEntries_areCut)
{
    const QList<Entry> many(30'000, item("A", "app.a"));
    EXPECT_EQ(titles({{Top, many}}).size(), gtk_menus::MaximumEntries);
    EXPECT_LE(titles({{Top, {section({0, 1}), section({0, 2})}}, {{0, 1}, many}, {{0, 2}, many}}).size(),
              gtk_menus::MaximumEntries)
        << "all sections together";
    QList<Action> others;
    for (int i = 0; i < 30'000; ++i)
        others.append({"a" + QByteArray::number(i), true, "", {}});
    EXPECT_EQ(actions(others).size(), gtk_menus::MaximumEntries);
}

TEST_F(GtkMenusTest, aLabelOfManyBytes_isCut)
{
    EXPECT_EQ(row({{"label", QByteArray(1'000'000, 'x')}}).title.size(), 64 * 1024);
}

TEST_F(GtkMenusTest, aStateOfAnySize_isPassedOver)
{
    SdBusMessage message = empty();
    sd_bus_message_append(message.get(), "a{s(bgav)}", 3, "list", 1, "", 1, "as", 2, "one", "two", "two", 1,
                          "", 2, "b", 1, "b", 0, "last", 1, "", 0);
    const GtkActions decoded = gtk_menus::decodeActions(sealed(std::move(message)).get());
    EXPECT_EQ(decoded.size(), 3);
    EXPECT_FALSE(decoded["list"].state);
    EXPECT_TRUE(decoded["two"].state->truth().value_or(false)) << "the first of several";
    EXPECT_TRUE(decoded["last"].enabled);
}

TEST_F(GtkMenusTest, iconsAndOtherAttributes_arePassedOver)
{
    SdBusMessage message = empty();
    sd_bus_message_append(message.get(), "a(uuaa{sv})", 1, 0, 0, 1, 3, "icon", "(sv)", "bytes", "ay", 3, 1, 2,
                          3, "label", "s", "A", "x-custom", "a{sv}", 0);
    GtkMenus decoded;
    gtk_menus::decodeMenus(sealed(std::move(message)).get(), decoded);
    ASSERT_EQ(decoded[Top].size(), 1);
    EXPECT_EQ(decoded[Top][0].label, u"A"_s);
}

namespace {

class SdBusValueTest : public MessageTest
{
protected:
    template <typename... Arguments>
    std::optional<SdBusValue> value(const char* types, Arguments... arguments)
    {
        return SdBusValue::readVariant(reply("v", types, arguments...).get());
    }
    /// What comes back after it has been sent on.
    std::optional<SdBusValue> again(const SdBusValue& sent)
    {
        SdBusMessage message = empty();
        EXPECT_TRUE(sent.appendVariantTo(message.get()));
        return SdBusValue::readVariant(sealed(std::move(message)).get());
    }
};

} // namespace

TEST_F(SdBusValueTest, valuesOfEveryType_areKeptAndSentBack)
{
    const std::optional<SdBusValue> values[] = {
        value("s", "text"),
        value("o", "/path"),
        value("g", "a{sv}"),
        value("b", 1),
        value("y", 7),
        value("n", -7),
        value("q", 7),
        value("i", -7),
        value("u", 7),
        value("x", std::int64_t{-7}),
        value("t", std::uint64_t{7}),
        value("d", 0.25),
        value("as", 2, "a", "b"),
        value("as", 0),
        value("(sib)", "a", 3, 1),
        value("a{sv}", 1, "k", "i", 5),
        value("v", "s", "in a variant"),
        value("aas", 1, 1, "x"),
    };
    for (const auto& one : values) {
        ASSERT_TRUE(one);
        EXPECT_EQ(again(*one), one) << one->signature().constData();
        for (const auto& other : values)
            EXPECT_EQ(one == other, &one == &other) << one->signature().constData();
    }
    EXPECT_FALSE(value("i", 7) == value("i", 8));
    EXPECT_FALSE(value("s", "a") == value("s", "b"));
    EXPECT_FALSE(value("as", 1, "a") == value("as", 2, "a", "a"));
}

TEST_F(SdBusValueTest, whatCannotBeKept_isNothing)
{
    EXPECT_FALSE(SdBusValue::readVariant(reply("s", "no variant").get()));
    EXPECT_FALSE(SdBusValue::readVariant(reply("").get()));
    EXPECT_FALSE(value("h", 0)) << "a descriptor";
    SdBusMessage large = empty();
    sd_bus_message_open_container(large.get(), SD_BUS_TYPE_VARIANT, "ay");
    const QByteArray bytes(100'000, 'x');
    sd_bus_message_append_array(large.get(), SD_BUS_TYPE_BYTE, bytes.constData(), 100'000);
    sd_bus_message_close_container(large.get());
    EXPECT_FALSE(SdBusValue::readVariant(sealed(std::move(large)).get()));
    SdBusMessage deep = empty();
    for (int i = 0; i < 40; ++i)
        sd_bus_message_open_container(deep.get(), SD_BUS_TYPE_VARIANT, i < 39 ? "v" : "s");
    sd_bus_message_append(deep.get(), "s", "x");
    for (int i = 0; i < 40; ++i)
        sd_bus_message_close_container(deep.get());
    EXPECT_FALSE(SdBusValue::readVariant(sealed(std::move(deep)).get()));
}
