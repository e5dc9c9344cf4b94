// SPDX-License-Identifier: MIT
// Which exported menu bar is that of a window: by the word of somebody who collects them, who comes and goes,
// or because the process exports only one.
#include "platform/linux/dbusmenu/DbusMenuBars.h"

#include "platform/linux/bus/SdBus.h"
#include "platform/linux/dbusmenu/DbusMenuPlace.h"
#include "tests/FairTimer.h"
#include "tests/contract/linux/dbusmenu/ScriptedRegistrar.h"
#include "tests/contract/session/BusDaemon.h"

#include <QTest>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr xcb_window_t Window = 0x1400007;
constexpr int Limit = 20'000; // ms, for what comes at once where nothing else is going on

class DbusMenuBarsTest : public ::testing::Test
{
public:
    ~DbusMenuBarsTest() override { qunsetenv("DBUS_SESSION_BUS_ADDRESS"); }

protected:
    DbusMenuBarsTest() { qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address()); }

    /// Where the menu bar is; empty without one. Each question is one event.
    QByteArray pathOf(const BusReference& bar)
    {
        const auto place = DbusMenuPlace::fromPath(bar.path);
        return place ? place->menu : QByteArray();
    }
    QByteArray ofWindow()
    {
        QTest::qWait(1);
        return pathOf(bars.ofWindow(Window));
    }
    QByteArray ofProcess()
    {
        QTest::qWait(1);
        return pathOf(bars.ofProcess(getpid()));
    }
    /// A connection of this process that says it has objects of these names.
    std::unique_ptr<ScriptedApplication> exporting(const QByteArrayList& names)
    {
        auto application = std::make_unique<ScriptedApplication>(
            daemon.address(), "", QMap<QByteArray, ScriptedApplication::Object>());
        QByteArray text = "<node>";
        for (const QByteArray& name : names)
            text += "<node name=\"" + name + "\"/>";
        text += "</node>";
        application->setInterceptor([text](sd_bus_message* call) {
            const bool isIt = QByteArrayView(sd_bus_message_get_member(call)) == "Introspect" &&
                              QByteArrayView(sd_bus_message_get_path(call)) == "/com/canonical/menu";
            return isIt && sd_bus_reply_method_return(call, "s", text.constData()) >= 0;
        });
        return application;
    }

    BusDaemon daemon;
    SessionBus bus;
    ReadingBudget budget;
    DbusMenuSource source{bus, budget};
    DbusMenuBars bars{bus, budget, source};
};

} // namespace

TEST_F(DbusMenuBarsTest, whoCollectsBars_mayComeAndGo)
{
    EXPECT_EQ(ofWindow(), "");
    for (const QByteArray path : {"/MenuBar/1", "/com/canonical/menu/1C00007"}) {
        auto registrar = std::make_unique<ScriptedRegistrar>(daemon.address());
        EXPECT_EQ(ofWindow(), "") << "it has none of this window";
        registrar->set(Window, {":1.0", path});
        EXPECT_EQ(ofWindow(), path);
        EXPECT_EQ(QSet<QString>(registrar->calls().cbegin(), registrar->calls().cend()),
                  QSet<QString>{u"GetMenuForWindow /com/canonical/AppMenu/Registrar"_s});
        registrar.reset();
        EXPECT_EQ(ofWindow(), "");
    }
}

TEST_F(DbusMenuBarsTest, aWordThatMakesNoSense_isNone)
{
    ScriptedRegistrar registrar(daemon.address());
    const std::pair<const char*, ScriptedRegistrar::Place> rows[] = {
        {"no name", {"", "/MenuBar/1"}},
        {"a name that is none", {"1.5", "/MenuBar/1"}},
        {"a name that another program may have next", {"org.example.Editor", "/MenuBar/1"}},
        {"a path of nothing", {":1.0", "/"}},
    };
    for (const auto& [sentence, place] : rows) {
        registrar.set(Window, place);
        EXPECT_EQ(ofWindow(), "") << sentence;
    }
}

TEST_F(DbusMenuBarsTest, aCollectorThatDoesNotAnswer_leavesTimeForTheMenus_andIsLeftAloneForAWhile)
{
    ScriptedRegistrar registrar(daemon.address());
    registrar.set(Window, {":1.0", "/MenuBar/1"});
    registrar.setHanging(true);
    FairTimer time;
    time.start();
    EXPECT_EQ(ofWindow(), "");
    EXPECT_LE(time.fairElapsed(), 450) << "of the half second in which the menus are read, too";
    // Nobody waits for a collector that is silent: the question may come to it later.
    ASSERT_TRUE(QTest::qWaitFor([&] { return ofWindow().isEmpty() && !registrar.calls().isEmpty(); }, Limit));
    const qsizetype asked = registrar.calls().size();
    registrar.setHanging(false);
    EXPECT_EQ(ofWindow(), "");
    EXPECT_EQ(registrar.calls().size(), asked) << "nobody asks again at once";
    ASSERT_TRUE(QTest::qWaitFor([&] { return ofWindow() == "/MenuBar/1"; }, Limit));
}

TEST_F(DbusMenuBarsTest, theOnlyBarOfAProcess_isThatOfItsWindows)
{
    auto first = exporting({"0"});
    EXPECT_EQ(ofProcess(), "/com/canonical/menu/0");
    const auto second = exporting({"1"});
    EXPECT_EQ(ofProcess(), "/com/canonical/menu/0") << "other connections of it are found when it has no bar";
    first.reset();
    EXPECT_EQ(ofProcess(), "") << "nobody looks again at once";
    ASSERT_TRUE(QTest::qWaitFor([&] { return ofProcess() == "/com/canonical/menu/1"; }, Limit));
}

TEST_F(DbusMenuBarsTest, ofSeveralBars_nobodyKnowsWhoseTheyAre)
{
    const auto both = exporting({"0", "1"});
    EXPECT_EQ(ofProcess(), "");
}

TEST_F(DbusMenuBarsTest, barsOfSeveralConnections_areSeveral)
{
    const auto first = exporting({"0"});
    const auto second = exporting({"0"});
    EXPECT_EQ(ofProcess(), "");
}

TEST_F(DbusMenuBarsTest, aProcessWithoutBars_isNotSearchedForEachTime)
{
    const auto none = exporting({});
    const auto isAsked = [&] {
        none->forgetCalls();
        EXPECT_EQ(ofProcess(), "");
        return none->count(u"Introspect"_s) > 0;
    };
    ASSERT_TRUE(QTest::qWaitFor(isAsked, Limit));
    // On a slow machine the first question may have had no answer in time.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isAsked(); }, Limit));
    EXPECT_TRUE(QTest::qWaitFor(isAsked, Limit)) << "it may export one by now";
}
