// SPDX-License-Identifier: MIT
// Which menu bar counts when one is exported for a place outside the window.
#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/elements/LinuxReading.h"
#include "platform/linux/workspace/X11FrontApplication.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/contract/linux/dbusmenu/ScriptedMenus.h"
#include "tests/contract/linux/dbusmenu/ScriptedRegistrar.h"
#include "tests/contract/session/FixtureProgram.h"

#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int Limit = 20'000; // ms

class OutsideBarsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!FixtureProgram::exists(u"gtk3"_s) && !qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS"))
            GTEST_SKIP() << "no fixture program of gtk3";
        EXPECT_TRUE(reading->tree.access.open());
        menus.set({{0, {"", {1}}}, {1, {"_File", {2}}}, {2, {"_Quit"}}});
    }

    /// Once the program is in front, and its bar is collected.
    FrontWindow collectedWindowOf(const FixtureProgram& program)
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return reading->front->current().processIdentifier == program.processIdentifier(); },
            Limit));
        FrontWindow front = reading->front->current();
        registrar->set(front.window, {exporter.service(), "/MenuBar/1"});
        return front;
    }
    /// Each question is one event.
    MenuSource* sourceOf(const FrontWindow& front)
    {
        QTest::qWait(1);
        return reading->menuBars.of(front).source;
    }
    /// A program of that toolkit whose window in the tree has a bar.
    static std::unique_ptr<ScriptedApplication> programOf(const QByteArray& toolkit)
    {
        const QMap<QByteArray, ScriptedApplication::Object> objects{
            {atspi::RootPath, {"Program", 0, 0, {}, {"/window"}}},
            {"/window", {"Window", atspi::RoleFrame, 0, {}, {"/bar"}}},
            {"/bar", {{}, atspi::RoleMenuBar, 0, {}, {"/file"}}},
            {"/file", {"File", atspi::RoleMenu, 0, {}, {}}},
        };
        return std::make_unique<ScriptedApplication>(AtspiBus::address(Deadline::in(20s)), toolkit, objects);
    }
    static FrontWindow windowOf(const ScriptedApplication& program, const FrontWindow& front,
                                const LinuxReading& reading)
    {
        return {XCB_WINDOW_NONE, front.processIdentifier,
                BusReference{program.service(), "/window", reading.tree.bus.number()}};
    }

    ScriptedApplication exporter{qgetenv("DBUS_SESSION_BUS_ADDRESS"), "",
                                 QMap<QByteArray, ScriptedApplication::Object>()};
    ScriptedMenus menus{exporter};
    std::unique_ptr<ScriptedRegistrar> registrar =
        std::make_unique<ScriptedRegistrar>(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    std::shared_ptr<LinuxReading> reading = std::make_shared<LinuxReading>(&X11FrontApplication::make);
};

} // namespace

TEST_F(OutsideBarsTest, aBarInTheTree_goesFirst)
{
    const FixtureProgram program(u"gtk3"_s);
    const FrontWindow front = collectedWindowOf(program);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sourceOf(front) == &reading->tree.menus; }, Limit));
    registrar.reset();
    EXPECT_EQ(sourceOf(front), &reading->tree.menus);
}

TEST_F(OutsideBarsTest, withoutABarInTheTree_whatIsCollectedCountsAsLongAsItIs)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    const FrontWindow front = collectedWindowOf(program);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sourceOf(front) == &reading->outside.menus; }, Limit));
    EXPECT_EQ(reading->menuBars.ownerOf(front), (MenuBarOwner{front.window, {}}));
    const FrontWindow native{XCB_WINDOW_NONE, front.processIdentifier};
    EXPECT_EQ(sourceOf(native), &reading->outside.menus) << "by any window of its process";
    menus.set({{0, {"", {}}}});
    EXPECT_EQ(sourceOf(front), nullptr) << "a bar with nothing in it is none";
    registrar->set(front.window, {":1.9999", "/MenuBar/1"});
    EXPECT_EQ(sourceOf(front), nullptr) << "nor is one whose program has gone";
    registrar.reset();
    EXPECT_EQ(sourceOf(front), nullptr);
    EXPECT_EQ(sourceOf(native), nullptr);
}

TEST_F(OutsideBarsTest, theCompositorsWord_countsForItsWindow_whereTheTreeHasNoBar)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    registrar.reset();
    FrontWindow front{XCB_WINDOW_NONE, program.processIdentifier()};
    EXPECT_EQ(sourceOf(front), nullptr);
    front.menuBar = {exporter.service(), "/MenuBar/7"};
    EXPECT_EQ(sourceOf(front), &reading->outside.menus);
    front.menuBar = {":1.9999", "/MenuBar/7"};
    EXPECT_EQ(sourceOf(front), nullptr) << "nobody is there";
    front.menuBar = {exporter.service(), "nowhere"};
    EXPECT_EQ(sourceOf(front), nullptr) << "no path";
    front.menuBar = {exporter.service(), "/MenuBar/7"};
    for (const auto& [toolkit, isInTree] : {std::pair{"Gecko", false}, std::pair{"Qt", true}}) {
        const auto inTree = programOf(toolkit);
        FrontWindow window = windowOf(*inTree, front, *reading);
        window.menuBar = front.menuBar;
        MenuSource* const expected =
            isInTree ? static_cast<MenuSource*>(&reading->tree.menus) : &reading->outside.menus;
        EXPECT_EQ(sourceOf(window), expected) << toolkit;
    }
}

TEST_F(OutsideBarsTest, theBarThatWasFoundLast_isReadAhead_forItsProcessOnly)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    const FrontWindow front{XCB_WINDOW_NONE, program.processIdentifier(), {}, {exporter.service(), "/bar"}};
    QTest::qWait(1);
    const FoundMenuBar found = reading->menuBars.of(front);
    ASSERT_EQ(found.source, &reading->outside.menus);
    ASSERT_TRUE(found.source->readBar(found.bar));
    const MenuTracking::Span tracking;
    exporter.forgetCalls();
    reading->menuBars.readAhead({XCB_WINDOW_NONE, 1}, 10s);
    EXPECT_EQ(exporter.calls(), QStringList());
    QTest::qWait(1);
    reading->menuBars.readAhead(front, 10s);
    EXPECT_EQ(exporter.calls(), QStringList(u"GetLayout /bar"_s));
}

TEST_F(OutsideBarsTest, menusThatMayBeMissingUntilTheyOpen_areReadOutside)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    const FrontWindow front = collectedWindowOf(program);
    for (const auto& [toolkit, isInTree] :
         {std::pair{"Gecko", false}, std::pair{"gtk", true}, std::pair{"Qt", true}}) {
        const auto inTree = programOf(toolkit);
        const FrontWindow window = windowOf(*inTree, front, *reading);
        MenuSource* const expected =
            isInTree ? static_cast<MenuSource*>(&reading->tree.menus) : &reading->outside.menus;
        EXPECT_EQ(sourceOf(window), expected) << toolkit;
    }
    registrar->set(front.window, {":1.9999", "/MenuBar/1"});
    const auto inTree = programOf("Gecko");
    EXPECT_EQ(sourceOf(windowOf(*inTree, front, *reading)), &reading->tree.menus)
        << "what is gone hides nothing";
    registrar.reset();
    EXPECT_EQ(sourceOf(windowOf(*inTree, front, *reading)), &reading->tree.menus) << "it is all there is";
}
