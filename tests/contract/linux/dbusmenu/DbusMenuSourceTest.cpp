// SPDX-License-Identifier: MIT
// Menus that an application exports as "com.canonical.dbusmenu": what it is asked, and what is made of its
// answers.
#include "platform/linux/dbusmenu/DbusMenuSource.h"

#include "platform/linux/bus/SdBus.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/FairTimer.h"
#include "tests/contract/linux/dbusmenu/ScriptedMenus.h"
#include "tests/contract/session/BusDaemon.h"

#include <QTest>
#include <gtest/gtest.h>

#include <tuple>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int Limit = 20'000; // ms, for what comes at once where nothing else is going on

using Entries = QMap<qint32, ScriptedMenus::Entry>;
const Entries Editor{
    {0, {"", {5, 8}}}, {5, {"_File", {6}}}, {6, {"_Quit"}}, {8, {"_Edit", {9}}}, {9, {"_Copy"}}};
/// The same menus, after the program has made all of them anew.
const Entries EditorAnew{
    {0, {"", {15, 6}}}, {15, {"_File", {16}}}, {16, {"_Quit"}}, {6, {"_Edit", {19}}}, {19, {"_Copy"}}};

class DbusMenuSourceTest : public ::testing::Test
{
public:
    ~DbusMenuSourceTest() override
    {
        menus->setBusy(false);
        application.reset(); // its thread uses what the other members hold
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

protected:
    DbusMenuSourceTest()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address());
        application = std::make_unique<ScriptedApplication>(daemon.address(), "",
                                                            QMap<QByteArray, ScriptedApplication::Object>());
        menus = std::make_unique<ScriptedMenus>(*application);
        menus->set(Editor);
    }

    /// Each reading that begins here has its whole half second, as after a turn of the event loop.
    BusReference bar(const QByteArray& path = "/menu")
    {
        budget.begin();
        return source.reference(application->service(), path);
    }
    /// The only entry of that title in a menu.
    MenuRow entry(const std::optional<QList<MenuRow>>& rows, const QString& title)
    {
        for (const MenuRow& row : rows.value_or(QList<MenuRow>()))
            if (row.title == title)
                return row;
        ADD_FAILURE() << "no entry " << title.toStdString();
        return {};
    }
    MenuRow file() { return entry(source.readBar(bar()), u"File"_s); }
    MenuRow quit() { return entry(source.readMenu(file().contents), u"Quit"_s); }
    /// Presses an entry of another application that says to the end that it is greyed: its click is sent when
    /// nobody has patience any more with what was pressed before and has been answered.
    void outwaitPresses()
    {
        ScriptedApplication other(daemon.address(), "", QMap<QByteArray, ScriptedApplication::Object>());
        ScriptedMenus others(other);
        others.set({{0, {"", {1}}}, {1, {"Last"}}});
        budget.begin();
        const MenuRow last = entry(source.readMenu(source.reference(other.service(), "/menu")), u"Last"_s);
        others.setGreyedFor(1'000'000);
        EXPECT_TRUE(source.press(last));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !others.clicks().isEmpty(); }, Limit));
        other.setInterceptor({});
    }
    /// What is chosen by the time every press is over.
    QList<qint32> clicked()
    {
        outwaitPresses();
        static_cast<void>(source.readBar(bar())); // what was sent before has been received by its answer
        QList<qint32> numbers;
        for (const ScriptedMenus::Click& click : menus->clicks())
            numbers.append(click.number);
        return numbers;
    }
    QList<qint32> clickedAfterOne()
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !menus->clicks().isEmpty(); }, Limit));
        return clicked();
    }
    QStringList titles(const BusReference& menu)
    {
        budget.begin();
        QStringList found;
        for (const MenuRow& row : source.readMenu(menu).value_or(QList<MenuRow>()))
            found.append(row.title);
        return found;
    }

    BusDaemon daemon;
    std::unique_ptr<ScriptedApplication> application;
    std::unique_ptr<ScriptedMenus> menus;
    SessionBus bus;
    ReadingBudget budget;
    DbusMenuSource source{bus, budget};
};

} // namespace

TEST_F(DbusMenuSourceTest, aBarAndItsMenus_areReadWithOneMessageEach)
{
    EXPECT_EQ(titles(file().contents), QStringList(u"Quit"_s));
    EXPECT_EQ(application->calls(), (QStringList{u"GetLayout /menu"_s, u"GetLayout /menu"_s}));
    BusReference gone = file().contents;
    gone.path = "/menu 77";
    EXPECT_FALSE(source.readMenu(gone));
}

TEST_F(DbusMenuSourceTest, aBarThatIsKnownToHaveEntries_isNotReadTwice)
{
    const auto readsOnce = [this] {
        application->forgetCalls();
        EXPECT_TRUE(source.hasEntries(bar()));
        EXPECT_EQ(source.readBar(bar())->size(), 2);
        return application->count(u"GetLayout"_s) == 1;
    };
    ASSERT_TRUE(QTest::qWaitFor(readsOnce, Limit)) << "within a moment";
    EXPECT_EQ(source.readBar(bar())->size(), 2);
    EXPECT_EQ(application->count(u"GetLayout"_s), 2) << "a second reading is one";
    menus->set({{0, {""}}});
    EXPECT_FALSE(source.hasEntries(bar()));
    menus->set({});
    EXPECT_FALSE(source.hasEntries(bar()));
}

TEST_F(DbusMenuSourceTest, onlyQtIsToldThatAMenuOpens_beforeItIsRead)
{
    menus->setAboutToShow([](qint32 number, Entries& entries) {
        entries[number].holds.append(6);
        entries[number].holds.removeFirst();
        entries[6].label = "_Leave";
    });
    for (const QByteArray path : {"/com/canonical/menu/0", "/com/canonical/menu/1C00004", "/menu"}) {
        const MenuRow menu = entry(source.readBar(bar(path)), u"File"_s);
        EXPECT_EQ(titles(menu.contents), QStringList(u"Quit"_s)) << path.constData();
        EXPECT_EQ(application->count(u"AboutToShow"_s), 0) << path.constData();
    }
    const MenuRow menu = entry(source.readBar(bar("/MenuBar/1")), u"File"_s);
    EXPECT_EQ(application->count(u"AboutToShow"_s), 0) << "a bar does not open";
    EXPECT_EQ(titles(menu.contents), QStringList(u"Leave"_s));
    EXPECT_EQ(application->count(u"AboutToShow"_s), 1);
}

TEST_F(DbusMenuSourceTest, whoWasToldThatAMenuOpens_isToldThatItIsClosed_onceItIsRead)
{
    menus->setAboutToShow([](qint32, Entries& entries) { entries[6].enabled = false; });
    menus->setClosed([](qint32 number, Entries& entries) {
        if (number == 5)
            entries[6].enabled = true;
    });
    const MenuRow other = entry(source.readBar(bar("/com/canonical/menu/0")), u"File"_s);
    EXPECT_EQ(titles(other.contents), QStringList(u"Quit"_s));
    EXPECT_EQ(application->count(u"Event"_s), 0) << "others are told nothing";
    const MenuRow menu = entry(source.readBar(bar("/MenuBar/1")), u"File"_s);
    EXPECT_EQ(application->count(u"Event"_s), 0) << "a bar does not close";
    const MenuRow read = entry(source.readMenu(menu.contents), u"Quit"_s);
    EXPECT_FALSE(read.enabled) << "as in the open menu";
    EXPECT_FALSE(source.isDisabledNow(read, Deadline::in(std::chrono::seconds(20)))) << "as before";
    EXPECT_EQ(application->count(u"Event"_s), 1);
}

TEST_F(DbusMenuSourceTest, aMenuThatIsMadeWhenItOpens_saysSo)
{
    menus->set({{0, {"", {1, 2, 3, 4}}},
                {1, {"Late", {}, true, true}},
                {2, {"Stand-in", {5}}},
                {3, {"Greyed", {}, false, true}},
                {4, {"Leaf"}},
                {5, {"Label Empty"}}});
    const QStringList unmade(u"Open this menu in the application once"_s);
    const std::tuple<const char*, QString, QStringList> rows[] = {
        {"nothing is there yet", u"Late"_s, unmade},
        {"what stands in for it is nothing", u"Stand-in"_s, unmade},
        {"it can't be opened", u"Greyed"_s, {}},
    };
    for (const auto& [sentence, title, expected] : rows)
        EXPECT_EQ(titles(entry(source.readBar(bar()), title).contents), expected) << sentence;
    const MenuRow late = entry(source.readBar(bar()), u"Late"_s);
    const MenuRow row = source.readMenu(late.contents)->first();
    EXPECT_FALSE(row.enabled);
    EXPECT_FALSE(source.press(row));
    EXPECT_EQ(titles(entry(source.readBar(bar("/MenuBar/1")), u"Late"_s).contents), QStringList())
        << "one that makes its menus when it is told to has nothing in it";
    menus->change(0, [](auto& entry) { entry.holds.clear(); });
    EXPECT_TRUE(source.readBar(bar())->isEmpty()) << "a bar does not open";
}

TEST_F(DbusMenuSourceTest, aPress_isOneClickOnceTheEntryIsEnabled)
{
    const MenuRow chosen = quit();
    menus->setGreyedFor(2);
    EXPECT_TRUE(source.press(chosen));
    EXPECT_EQ(clickedAfterOne(), QList<qint32>{6});
    EXPECT_EQ(application->count(u"GetGroupProperties"_s), 3);
    EXPECT_EQ(application->count(u"Event"_s), 1);
    EXPECT_FALSE(source.press(file())) << "a submenu is not pressed";
}

TEST_F(DbusMenuSourceTest, whetherAnEntryIsGreyedNow_isAsked)
{
    const MenuRow chosen = quit();
    EXPECT_FALSE(source.isDisabledNow(chosen, Deadline::in(std::chrono::seconds(20))));
    menus->change(6, [](auto& entry) { entry.enabled = false; });
    EXPECT_TRUE(source.isDisabledNow(chosen, Deadline::in(std::chrono::seconds(20))));
    menus->change(6, [](auto& entry) { entry.label = "Another"; });
    EXPECT_FALSE(source.isDisabledNow(chosen, Deadline::in(std::chrono::seconds(20))))
        << "that is another one";
}

TEST_F(DbusMenuSourceTest, aMenuWhoseNumberHasChanged_isFoundByItsTitle)
{
    const MenuRow edit = entry(source.readBar(bar()), u"Edit"_s);
    menus->set(EditorAnew);
    application->forgetCalls();
    EXPECT_EQ(titles(edit.contents), QStringList(u"Copy"_s)) << "its number is refused";
    EXPECT_EQ(application->count(u"GetLayout"_s), 3) << "read again once from the bar on";
    menus->set({{0, {"", {8}}}, {8, {"_File", {6}}}, {6, {"_Quit"}}});
    EXPECT_EQ(titles(edit.contents), QStringList()) << "its number is that of another menu";
    EXPECT_EQ(titles(file().contents), QStringList(u"Quit"_s));
    EXPECT_EQ(titles(edit.contents), QStringList()) << "of which more is known meanwhile";
}

TEST_F(DbusMenuSourceTest, aPressOfAnEntryWhoseNumberHasChanged_goesToThatOfTheSameTitles)
{
    const MenuRow chosen = quit();
    menus->set(EditorAnew);
    EXPECT_TRUE(source.press(chosen));
    EXPECT_EQ(clickedAfterOne(), QList<qint32>{16}) << "number 6 is another one now";
}

TEST_F(DbusMenuSourceTest, aPressOfAnEntryThatIsGone_doesNothing)
{
    const std::pair<const char*, Entries> rows[] = {
        {"its menu is gone", {{0, {"", {6}}}, {6, {"_Edit", {9}}}, {9, {"_Copy"}}}},
        {"there are two", {{0, {"", {15}}}, {15, {"File", {16, 17}}}, {16, {"Quit"}}, {17, {"Quit"}}}},
        {"nothing is there", {}},
        {"it holds itself", {{0, {"", {0}}}, {5, {"File", {5}}}}},
    };
    for (const auto& [sentence, entries] : rows) {
        menus->set(Editor);
        const MenuRow chosen = quit();
        menus->set(entries);
        source.press(chosen);
        EXPECT_EQ(clicked(), QList<qint32>()) << sentence;
    }
}

TEST_F(DbusMenuSourceTest, whatIsReadAhead_isShownAsItWas_untilTheMenuHasClosed)
{
    menus->set({{0, {"", {1}}}, {1, {"File", {2, 3}}}, {2, {"New"}}, {3, {"Recent", {4}}}, {4, {"Notes"}}});
    const MenuRow holder = file();
    {
        const MenuTracking::Span tracking;
        budget.begin();
        source.readAhead(application->service(), std::chrono::seconds(10));
        menus->set(EditorAnew);
        application->forgetCalls();
        EXPECT_EQ(titles(holder.contents), (QStringList{u"New"_s, u"Recent"_s}));
        EXPECT_EQ(titles(entry(source.readMenu(holder.contents), u"Recent"_s).contents),
                  QStringList(u"Notes"_s));
        EXPECT_EQ(application->calls(), QStringList());
    }
    EXPECT_EQ(titles(holder.contents), QStringList(u"Quit"_s)) << "the next one shows what there is then";
}

TEST_F(DbusMenuSourceTest, whatIsAnothers_isNotReadAhead)
{
    static_cast<void>(file());
    const MenuTracking::Span tracking;
    application->forgetCalls();
    source.readAhead(":1.999999", std::chrono::seconds(10));
    EXPECT_EQ(application->calls(), QStringList());
}

TEST_F(DbusMenuSourceTest, whatDoesNotAnswer_isMissingInTime)
{
    const BusReference menu = bar();
    const MenuRow holder = file();
    menus->setHanging(true);
    QTest::qWait(1); // another event has another half second
    FairTimer time;
    time.start();
    EXPECT_FALSE(source.readBar(menu));
    EXPECT_FALSE(source.readMenu(holder.contents));
    EXPECT_LE(time.fairElapsed(), 1000);
}

TEST_F(DbusMenuSourceTest, aPressWaitsForOneThatIsBusy_whatItsNumberIsByThen)
{
    for (const bool anew : {false, true}) {
        const MenuRow chosen = quit();
        menus->setBusy(true);
        EXPECT_TRUE(source.press(chosen));
        outwaitPresses();
        if (anew)
            menus->set(EditorAnew);
        menus->setBusy(false);
        ASSERT_TRUE(QTest::qWaitFor([&] { return menus->clicks().size() == (anew ? 2 : 1); }, Limit)) << anew;
        EXPECT_EQ(clicked().mid(anew ? 1 : 0), QList<qint32>{anew ? 16 : 6});
    }
}

TEST_F(DbusMenuSourceTest, whatIsNotSaidToBeTheEntry_isNotPressed)
{
    MenuRow chosen = quit();
    menus->setRefusingFacts(true);
    source.press(chosen);
    EXPECT_EQ(clicked(), QList<qint32>());
    menus->setRefusingFacts(false);
    menus->change(6, [](auto& entry) { entry.label = "Another"; });
    chosen.enabled = false;
    source.press(chosen);
    EXPECT_EQ(clicked(), QList<qint32>()) << "neither where it was greyed";
    menus->set(Editor);
    source.press(chosen);
    EXPECT_EQ(clickedAfterOne(), QList<qint32>{6});
}

TEST_F(DbusMenuSourceTest, theEndOfTheExporter_isTheEndOfItsMenus)
{
    const MenuRow holder = file();
    const MenuRow chosen = quit();
    application.reset();
    QTest::qWait(1);
    EXPECT_FALSE(source.readMenu(holder.contents));
    EXPECT_FALSE(source.isDisabledNow(chosen, Deadline::in(std::chrono::seconds(20))));
    source.press(chosen);
    outwaitPresses();
}
