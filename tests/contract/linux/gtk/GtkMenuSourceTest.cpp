// SPDX-License-Identifier: MIT
// Exported menus against an application that does what a test has written down, on a bus of its own.
#include "platform/linux/gtk/GtkMenuSource.h"

#include "platform/linux/gtk/GtkMenuDecode.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/FairTimer.h"
#include "tests/contract/linux/gtk/ExportedModel.h"
#include "tests/contract/session/BusDaemon.h"
#include "tests/contract/session/ScriptedApplication.h"

#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace tarnwick::exported;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr GtkMenuNumber Bar{0, 0};
constexpr int Limit = 20'000; // ms, for what comes at once where nothing else is going on

/// The groups in a call to "Start" or "End".
QList<quint32> groupsIn(sd_bus_message* call)
{
    QList<quint32> groups;
    quint32 group = 0;
    sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "u");
    while (sd_bus_message_read(call, "u", &group) > 0)
        groups.append(group);
    sd_bus_message_rewind(call, 1);
    return groups;
}

class GtkMenuSourceTest : public ::testing::Test
{
protected:
    GtkMenuSourceTest()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address());
        _connect();
    }
    ~GtkMenuSourceTest() override
    {
        application.reset(); // its thread uses what the other members hold
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

    void restart()
    {
        daemon.stop();
        daemon.start();
        _connect();
    }

    /// What the application exports from now on.
    void publish(const QList<Menu>& menus, const QList<Action>& actions = {})
    {
        const std::lock_guard lock(mutex);
        _menus = menus;
        _actions = actions;
    }
    void setActions(const QList<Action>& actions)
    {
        const std::lock_guard lock(mutex);
        _actions = actions;
    }

    /// Gets each call first; true when it has answered, or wants no answer, itself.
    void setLever(std::function<bool(sd_bus_message*)> lever)
    {
        const std::lock_guard lock(mutex);
        _lever = std::move(lever);
    }

    BusReference at(GtkMenuNumber number)
    {
        return source.reference(application->service(), {"/menus", "/app", "/win", number, {}, module});
    }
    QList<MenuRow> menu(GtkMenuNumber number)
    {
        return source.readMenu(at(number)).value_or(QList<MenuRow>());
    }
    QStringList titles(GtkMenuNumber number)
    {
        QStringList found;
        for (const MenuRow& row : menu(number))
            found.append(row.title);
        return found;
    }
    [[nodiscard]] int presses() const { return application->count(u"Activate"_s); }

    /// Waits until what was started so far has been ended as often.
    bool allEnded()
    {
        return QTest::qWaitFor(
            [this] {
                const std::lock_guard lock(mutex);
                return std::all_of(watched.cbegin(), watched.cend(), [](int count) { return count == 0; });
            },
            Limit);
    }

    BusDaemon daemon;
    std::unique_ptr<ScriptedApplication> application;
    std::mutex mutex;
    QMap<quint32, int> watched; ///< by group: looks that were begun and not ended
    SessionBus bus;
    ReadingBudget budget;
    GtkMenuSource source{bus, budget};
    QByteArray module; ///< path of the actions of a module

private:
    void _connect()
    {
        application = std::make_unique<ScriptedApplication>(daemon.address(), "",
                                                            QMap<QByteArray, ScriptedApplication::Object>());
        application->setInterceptor([this](sd_bus_message* call) { return _receive(call); });
    }

    bool _receive(sd_bus_message* call)
    {
        const std::lock_guard lock(mutex);
        const QByteArrayView member = sd_bus_message_get_member(call);
        const QList<quint32> groups =
            member == "Start" || member == "End" ? groupsIn(call) : QList<quint32>();
        for (const quint32 group : groups)
            watched[group] += member == "Start" ? 1 : -1;
        if (_lever && _lever(call))
            return true;
        if (member == "Start")
            return answer(call, [&](sd_bus_message* reply) {
                QList<Menu> asked = _menus;
                asked.removeIf([&](const Menu& menu) { return !groups.contains(menu.number.group); });
                append(reply, asked);
            });
        if (member == "DescribeAll")
            return answer(call, [&](sd_bus_message* reply) { append(reply, _actions); });
        if (member == "Describe")
            return answer(call, [&](sd_bus_message* reply) { appendFacts(reply, _actions.value(0)); });
        return member == "End" || member == "Activate";
    }

    QList<Menu> _menus;
    QList<Action> _actions;
    std::function<bool(sd_bus_message*)> _lever;
};

const QList<Menu> Editor{
    {Bar, {submenu("_File", {1, 0}), section({0, 1})}},
    {{0, 1}, {submenu("_Help", {2, 0})}},
    {{1, 0}, {section({1, 1}), section({1, 2})}},
    {{1, 1}, {item("_New", "app.new", {{"accel", "<Primary>n"}}), item("_Wrap", "win.wrap")}},
    {{1, 2}, {item("_Quit", "app.quit")}},
    {{2, 0}, {item("_About", "app.about")}}};
const QList<Action> EditorActions{{"new", true, "", {}}, {"wrap", true, "", true}, {"quit", false, "", {}}};

} // namespace

TEST_F(GtkMenuSourceTest, aBarAndItsMenus_areRead)
{
    publish(Editor, EditorActions);
    const auto bar = source.readBar(at(Bar));
    ASSERT_TRUE(bar && bar->size() == 2) << "a bar has no separators";
    EXPECT_EQ(bar->at(0).title, u"File"_s);
    EXPECT_EQ(bar->at(1).title, u"Help"_s);
    EXPECT_EQ(bar->at(0).kind, MenuRow::Kind::Holder);
    const auto file = source.readMenu(bar->at(0).contents);
    ASSERT_TRUE(file && file->size() == 4);
    EXPECT_EQ(file->at(0).shortcut, (MenuShortcut{u"N"_s, {}, 0}));
    EXPECT_TRUE(file->at(0).enabled);
    EXPECT_TRUE(file->at(1).checked);
    EXPECT_EQ(file->at(2).kind, MenuRow::Kind::Separator);
    EXPECT_FALSE(file->at(3).enabled);
}

TEST_F(GtkMenuSourceTest, aMenuOfAnySize_costsFourMessages)
{
    publish({{{1, 0}, QList<Entry>(300, item("A", "app.new"))}}, EditorActions);
    const BusReference menu = at({1, 0});
    application->forgetCalls();
    EXPECT_EQ(source.readMenu(menu)->size(), 300);
    EXPECT_TRUE(allEnded());
    QStringList calls = application->calls();
    EXPECT_EQ(calls.last(), u"End /menus"_s);
    calls.sort();
    EXPECT_EQ(calls, (QStringList{u"DescribeAll /app"_s, u"DescribeAll /win"_s, u"End /menus"_s,
                                  u"Start /menus"_s}));
}

TEST_F(GtkMenuSourceTest, theActionsOfAModule_areAskedForToo)
{
    module = "/module";
    publish({{Bar, {item("A", "unity.new")}}}, EditorActions);
    application->forgetCalls();
    EXPECT_TRUE(menu(Bar).value(0).enabled);
    EXPECT_TRUE(allEnded());
    EXPECT_EQ(application->count(u"DescribeAll"_s), 3);
    module = "/win"; // as a module may give both
    application->forgetCalls();
    EXPECT_TRUE(menu(Bar).value(0).enabled);
    EXPECT_TRUE(allEnded());
    EXPECT_EQ(application->count(u"DescribeAll"_s), 2) << "each path is asked once";
}

TEST_F(GtkMenuSourceTest, aBarWithoutEntries_isKnownAsSuch)
{
    publish(Editor);
    EXPECT_FALSE(source.isEmpty(at(Bar)));
    publish({{Bar, {}}});
    EXPECT_TRUE(source.isEmpty(at(Bar)));
    publish({{Bar, {{{"action", "unity.0"}}}}});
    EXPECT_TRUE(source.isEmpty(at(Bar))) << "an entry without a title is none";
    publish({});
    EXPECT_FALSE(source.isEmpty(at(Bar))) << "nothing was told";
    application->setInterceptor([](sd_bus_message* /*call*/) { return true; });
    EXPECT_FALSE(source.isEmpty(at(Bar))) << "nor by one that does not answer";
}

TEST_F(GtkMenuSourceTest, aBarThatWasJustLookedAt_isNotReadTwice)
{
    publish(Editor);
    const BusReference bar = at(Bar);
    const auto looks = [&] { return application->count(u"Start"_s); };
    // Somebody else may have the machine for longer than the moment that counts.
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            EXPECT_FALSE(source.isEmpty(bar));
            application->forgetCalls();
            EXPECT_EQ(source.readBar(bar)->size(), 2);
            return looks() == 0;
        },
        Limit));
    EXPECT_EQ(source.readBar(bar)->size(), 2);
    EXPECT_EQ(looks(), 1) << "what was read is given once";
    EXPECT_FALSE(source.isEmpty(bar));
    QTest::qWait(50);
    application->forgetCalls();
    EXPECT_EQ(source.readBar(bar)->size(), 2);
    EXPECT_EQ(looks(), 1) << "and not for long";
    EXPECT_FALSE(source.isEmpty(bar));
    application->forgetCalls();
    EXPECT_EQ(source.readBar(at({1, 0}))->size(), 3) << "nor for another one";
    EXPECT_EQ(looks(), 1);
}

TEST_F(GtkMenuSourceTest, aLookAtAll_startsEachGroupOnceAndEndsIt)
{
    QList<Menu> menus{{Bar, {submenu("A", {1, 0}), submenu("B", {2, 0}), section({0, 1})}},
                      {{0, 1}, {submenu("C", {3, 0})}},
                      {{1, 0}, {submenu("Circle", {1, 0}), submenu("Back", Bar), section({4, 0})}},
                      {{2, 0}, {submenu("A", {1, 0})}},
                      {{3, 0}, {submenu("Nowhere", {200, 0})}},
                      {{4, 0}, {submenu("Deep", {10, 0})}}};
    for (quint32 group = 10; group < 100; ++group) // deeper than anybody looks
        menus.append({{group, 0}, {submenu("Deeper", {group + 1, 0})}});
    publish(menus, EditorActions);
    application->forgetCalls();
    budget.begin();
    EXPECT_TRUE(source.lookAtAll(at(Bar), 10s));
    EXPECT_TRUE(allEnded());
    const QList<quint32> looked = watched.keys();
    for (const quint32 group : {0U, 1U, 2U, 3U, 4U, 10U, 20U, 200U})
        EXPECT_TRUE(looked.contains(group)) << group;
    EXPECT_LT(looked.size(), 30);
    EXPECT_EQ(application->count(u"Start"_s), 16);
    EXPECT_EQ(application->count(u"Start"_s), application->count(u"End"_s));
    EXPECT_EQ(application->count(u"DescribeAll"_s), 0) << "what the actions are is not needed";
}

TEST_F(GtkMenuSourceTest, aLookAtAll_hasOnlyTheTimeThatItIsGiven)
{
    publish(Editor);
    EXPECT_TRUE(source.lookAtAll(at(Bar), 10s));
    EXPECT_FALSE(source.lookAtAll({application->service(), "no place", bus.number()}, 10s));
    setLever([](sd_bus_message* call) {
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no") >= 0;
    });
    EXPECT_FALSE(source.lookAtAll(at(Bar), 10s)) << "nothing was looked at";
    setLever([](sd_bus_message* /*call*/) { return true; });
    FairTimer time;
    time.start();
    EXPECT_FALSE(source.lookAtAll(at(Bar), 100ms));
    EXPECT_LE(time.fairElapsed(), 300);
    setLever({});
    EXPECT_FALSE(source.readMenu(at({1, 0})).value_or(QList<MenuRow>()).isEmpty()) << "and leaves the rest";
}

TEST_F(GtkMenuSourceTest, everyLook_isEnded)
{
    publish(Editor, EditorActions);
    EXPECT_EQ(titles({1, 0}).size(), 4);
    EXPECT_TRUE(allEnded());
    EXPECT_EQ(watched.keys(), QList<quint32>{1}) << "nothing else was looked at";
    const std::pair<const char*, std::function<bool(sd_bus_message*)>> exporters[] = {
        {"an error",
         [](sd_bus_message* call) {
             return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no") >= 0;
         }},
        {"a wrong type",
         [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "s", "menus") >= 0; }},
        {"an empty reply", [](sd_bus_message* call) { return sd_bus_reply_method_return(call, "") >= 0; }},
        {"no answer", [](sd_bus_message*) { return true; }},
    };
    for (const auto& [kind, exporter] : exporters) {
        setLever(exporter);
        QTest::qWait(1);
        EXPECT_FALSE(source.readMenu(at({1, 0}))) << kind;
        EXPECT_TRUE(allEnded()) << kind;
    }
}

TEST_F(GtkMenuSourceTest, sectionsOfAnotherGroup_areFetchedAndEnded)
{
    publish({{Bar, {section({5, 0}), section({6, 0})}},
             {{5, 0}, {item("A", "app.new"), section({7, 3})}},
             {{6, 0}, {item("B", "app.new"), section({99, 0})}},
             {{7, 3}, {item("C", "app.new"), section(Bar)}}},
            EditorActions);
    EXPECT_EQ(titles(Bar), (QStringList{u"A"_s, u"C"_s, {}, u"B"_s}));
    EXPECT_TRUE(allEnded());
    EXPECT_EQ(application->count(u"DescribeAll"_s), 2) << "actions are asked for once";
}

TEST_F(GtkMenuSourceTest, aChainOfGroups_ends)
{
    QList<Menu> chain;
    for (quint32 i = 0; i < 100; ++i)
        chain.append({{i, 0}, {item("A", "app.new"), section({i + 1, 0})}});
    publish(chain, EditorActions);
    EXPECT_EQ(titles(Bar).size(), 4 + 1) << "a round trip each, and a separator";
    QList<Entry> wide;
    for (quint32 i = 1; i < 1000; ++i)
        wide.append(section({i, 0}));
    publish({{Bar, wide}}, EditorActions);
    QTest::qWait(1);
    EXPECT_EQ(titles(Bar).size(), 0);
    EXPECT_TRUE(allEnded());
    EXPECT_LE(watched.size(), 500);
}

TEST_F(GtkMenuSourceTest, aHugeMenu_isCutInTime)
{
    publish({{{1, 0}, QList<Entry>(60'000, item("A", "app.new"))}}, EditorActions);
    const BusReference menu = at({1, 0});
    FairTimer time;
    time.start();
    const auto rows = source.readMenu(menu);
    EXPECT_LE(time.fairElapsed(), 1000);
    EXPECT_TRUE(!rows || rows->size() == gtk_menus::MaximumEntries);
    EXPECT_TRUE(allEnded());
}

TEST_F(GtkMenuSourceTest, whatIsReadAhead_isShownAsItWas_untilTheMenuHasClosed)
{
    publish({{Bar, {submenu("File", {1, 0})}},
             {{1, 0}, {item("New", "app.new"), submenu("Recent", {2, 0})}},
             {{2, 0}, {item("Notes", "app.new")}}},
            EditorActions);
    const auto bar = source.readBar(at(Bar));
    ASSERT_TRUE(bar && bar->size() == 1);
    {
        const MenuTracking::Span tracking;
        source.readAhead(application->service(), 10s);
        EXPECT_TRUE(allEnded());
        setActions({{"new", false, "", {}}});
        const auto file = source.readMenu(bar->at(0).contents).value_or(QList<MenuRow>());
        ASSERT_EQ(file.size(), 2);
        EXPECT_TRUE(file[0].enabled);
        const auto recent = source.readMenu(file[1].contents).value_or(QList<MenuRow>());
        ASSERT_EQ(recent.size(), 1);
        EXPECT_TRUE(recent[0].enabled);
    }
    EXPECT_FALSE(menu({1, 0}).value(0).enabled) << "the next one shows what there is then";
}

TEST_F(GtkMenuSourceTest, menusThatAreReadAhead_costOneQuestionALevel_andTheActionsOneInAll)
{
    publish({{Bar, {submenu("File", {1, 0}), submenu("Edit", {2, 0}), submenu("Help", {3, 0})}},
             {{1, 0}, {item("New", "app.new"), submenu("Recent", {4, 0})}},
             {{2, 0}, {item("Cut", "app.new"), submenu("Find", {5, 0})}},
             {{3, 0}, {item("About", "app.new")}},
             {{4, 0}, {item("Notes", "app.new")}},
             {{5, 0}, {item("Next", "app.new")}}},
            EditorActions);
    const auto bar = source.readBar(at(Bar));
    ASSERT_TRUE(bar && bar->size() == 3);
    EXPECT_TRUE(allEnded());
    const MenuTracking::Span tracking;
    application->forgetCalls();
    source.readAhead(application->service(), 10s);
    EXPECT_TRUE(allEnded());
    EXPECT_EQ(application->count(u"Start"_s), 2);
    EXPECT_EQ(application->count(u"DescribeAll"_s), 2);
    application->forgetCalls();
    for (const MenuRow& holder : *bar)
        for (const MenuRow& row : source.readMenu(holder.contents).value_or(QList<MenuRow>())) {
            EXPECT_TRUE(row.enabled) << row.title.toStdString();
            const bool isHolder = row.kind == MenuRow::Kind::Holder;
            EXPECT_TRUE(!isHolder || source.readMenu(row.contents).value_or(QList<MenuRow>()).size() == 1);
        }
    EXPECT_TRUE(application->calls().isEmpty());
}

TEST_F(GtkMenuSourceTest, whatIsNotReadAheadInTime_orIsAnothers_isReadWhenItIsOpened)
{
    publish(Editor, EditorActions);
    ASSERT_TRUE(source.readBar(at(Bar)));
    EXPECT_TRUE(allEnded());
    const MenuTracking::Span tracking;
    application->forgetCalls();
    source.readAhead(":1.999999", 10s);
    EXPECT_TRUE(application->calls().isEmpty());
    setLever([](sd_bus_message* call) { return QByteArrayView(sd_bus_message_get_path(call)) == "/win"; });
    FairTimer time;
    time.start();
    source.readAhead(application->service(), 100ms);
    EXPECT_LE(time.fairElapsed(), 300);
    setLever(nullptr);
    QTest::qWait(1);
    EXPECT_TRUE(menu({1, 0}).value(1).checked) << "what was not whole is read anew";
}

TEST_F(GtkMenuSourceTest, withoutActions_everythingIsGreyed)
{
    publish(Editor, EditorActions);
    setLever([](sd_bus_message* call) {
        return QByteArrayView(sd_bus_message_get_member(call)) == "DescribeAll" &&
               sd_bus_reply_method_return(call, "as", 1, "new") >= 0;
    });
    const auto rows = menu({1, 0});
    ASSERT_EQ(rows.size(), 4);
    for (const MenuRow& row : rows)
        EXPECT_FALSE(row.enabled);
    EXPECT_FALSE(source.press(rows.first())) << "what it would do is not known";
}

TEST_F(GtkMenuSourceTest, whatHasNotComeByTheDeadline_isMissing)
{
    publish(Editor, EditorActions);
    const BusReference menu = at({1, 0});
    setLever([](sd_bus_message* call) { return QByteArrayView(sd_bus_message_get_path(call)) == "/win"; });
    FairTimer time;
    time.start();
    const auto rows = source.readMenu(menu);
    EXPECT_GE(time.elapsed(), 450);
    EXPECT_LE(time.fairElapsed(), 900);
    ASSERT_TRUE(rows && rows->size() == 4);
    EXPECT_TRUE(rows->at(0).enabled);
    EXPECT_FALSE(rows->at(1).enabled) << "the window's actions have not come";
    time.start();
    EXPECT_FALSE(source.readMenu(menu)) << "the event's time is used up";
    EXPECT_LE(time.fairElapsed(), 200);
    setLever(nullptr);
    QTest::qWait(1);
    EXPECT_TRUE(source.readMenu(menu)->at(1).checked) << "the next event has its own";
}

TEST_F(GtkMenuSourceTest, nothingElseIsAsked)
{
    publish(Editor, EditorActions);
    std::atomic<bool> starts = false;
    setLever([&](sd_bus_message* call) {
        if (sd_bus_message_get_auto_start(call) != 0)
            starts = true;
        return false;
    });
    EXPECT_TRUE(source.readBar(at(Bar)));
    const auto rows = menu({1, 0});
    EXPECT_TRUE(source.press(rows.value(0)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    EXPECT_FALSE(starts) << "no program is started for it";
    for (const QString& call : application->calls())
        EXPECT_TRUE((QStringList{u"Start"_s, u"End"_s, u"DescribeAll"_s, u"Describe"_s, u"Activate"_s})
                        .contains(call.section(u' ', 0, 0)))
            << call.toStdString();
}

TEST_F(GtkMenuSourceTest, aPress_activatesOnceWithTargetAndTime)
{
    publish({{{1, 0}, {item("Big", "win.size", {{"target", "big"}})}}}, {{"size", true, "s", "small"}});
    QStringList seen;
    int expecting = -1;
    setLever([&](sd_bus_message* call) {
        if (QByteArrayView(sd_bus_message_get_member(call)) != "Activate")
            return false;
        const char* name = nullptr;
        const char* target = nullptr;
        const char* key = nullptr;
        const char* identifier = nullptr;
        EXPECT_GT(sd_bus_message_read(call, "sava{sv}", &name, 1, "s", &target, 1, &key, "s", &identifier),
                  0);
        seen = QStringList{QString::fromLatin1(sd_bus_message_get_path(call)), QString::fromLatin1(name),
                           QString::fromLatin1(target), QString::fromLatin1(key),
                           QString::fromLatin1(identifier)};
        expecting = sd_bus_message_get_expect_reply(call);
        return true;
    });
    const MenuRow row = menu({1, 0}).value(0);
    FairTimer time;
    time.start();
    EXPECT_TRUE(source.press(row));
    EXPECT_LE(time.fairElapsed(), 200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    QTest::qWait(400);
    EXPECT_EQ(presses(), 1);
    const std::lock_guard lock(mutex);
    EXPECT_EQ(seen.mid(0, 4), (QStringList{u"/win"_s, u"size"_s, u"big"_s, u"desktop-startup-id"_s}));
    EXPECT_TRUE(seen.value(4).contains(u"_TIME"_s)) << seen.value(4).toStdString();
    EXPECT_EQ(expecting, 0);
}

TEST_F(GtkMenuSourceTest, anEntryWithoutATarget_activatesWithoutOne)
{
    publish(Editor, EditorActions);
    QByteArray contents = "?";
    setLever([&](sd_bus_message* call) {
        if (QByteArrayView(sd_bus_message_get_member(call)) == "Activate") {
            sd_bus_message_skip(call, "s");
            sd_bus_message_enter_container(call, SD_BUS_TYPE_ARRAY, "v");
            contents = sd_bus_message_at_end(call, 0) > 0 ? "" : "something";
        }
        return false;
    });
    EXPECT_TRUE(source.press(menu({1, 0}).value(0)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    const std::lock_guard lock(mutex);
    EXPECT_EQ(contents, "");
}

TEST_F(GtkMenuSourceTest, anActionThatIsDisabledForAMoment_isWaitedForThenPressedOnce)
{
    publish(Editor, EditorActions);
    const MenuRow row = menu({1, 0}).value(0);
    setActions({{"new", false, "", {}}});
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return application->count(u"Describe /app"_s) >= 4; }, Limit));
    EXPECT_EQ(presses(), 0);
    setActions(EditorActions);
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    QTest::qWait(400);
    EXPECT_EQ(presses(), 1);
}

TEST_F(GtkMenuSourceTest, anApplicationThatDoesNotAnswer_isStillPressedOnce)
{
    publish(Editor, EditorActions);
    const MenuRow row = menu({1, 0}).value(0);
    setLever([](sd_bus_message*) { return true; });
    FairTimer time;
    time.start();
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    EXPECT_GE(time.elapsed(), 237) << "a timer may be a twentieth early";
    QTest::qWait(400);
    EXPECT_EQ(presses(), 1);
}

TEST_F(GtkMenuSourceTest, anEntryIsDisabledNow_ifItsActionSaysSoByTheDeadline)
{
    publish(Editor, EditorActions);
    const MenuRow row = menu({1, 0}).value(0);
    EXPECT_FALSE(source.isDisabledNow(row, Deadline::in(20s)));
    setActions({{"new", false, "", {}}});
    EXPECT_TRUE(source.isDisabledNow(row, Deadline::in(20s)));
    setLever([](sd_bus_message*) { return true; });
    FairTimer time;
    time.start();
    EXPECT_FALSE(source.isDisabledNow(row, Deadline::in(100ms)));
    EXPECT_LE(time.fairElapsed(), 300);
    EXPECT_EQ(presses(), 0);
    EXPECT_FALSE(source.isDisabledNow(MenuRow(), Deadline::in(20s)));
}

TEST_F(GtkMenuSourceTest, anEntryWithoutAnAction_cannotBePressed)
{
    publish({{{1, 0}, {{{"label", "Nothing"}}}}});
    EXPECT_FALSE(source.press(menu({1, 0}).value(0)));
    EXPECT_FALSE(source.press(MenuRow()));
}

TEST_F(GtkMenuSourceTest, theBusCanGoAndComeBack)
{
    publish(Editor, EditorActions);
    const BusReference old = at({1, 0});
    const MenuRow row = menu({1, 0}).value(0);
    restart();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bus.standingConnection() == nullptr; }, Limit));
    EXPECT_FALSE(source.readMenu(old));
    publish(Editor, EditorActions);
    ASSERT_TRUE(QTest::qWaitFor([&] { return bool(at(Bar)); }, Limit));
    EXPECT_EQ(titles({1, 0}).size(), 4);
    EXPECT_FALSE(source.readMenu(old)) << "names of the old connection mean nothing";
    EXPECT_FALSE(source.press(row)) << "least of all for a press";
    EXPECT_FALSE(source.readMenu({}));
}

TEST_F(GtkMenuSourceTest, withoutABus_nothingIsReadAndNothingWaits)
{
    daemon.stop();
    FairTimer time;
    time.start();
    for (int i = 0; i < 20; ++i)
        EXPECT_FALSE(source.reference(":1.1", {"/menus", {}, {}, {}, {}}));
    EXPECT_LE(time.fairElapsed(), 400);
}
