// SPDX-License-Identifier: MIT
// Which menu bar counts when a window exports one, has one in its accessibility tree, has both, or lies.
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/workspace/X11FrontApplication.h"
#include "tests/FairTimer.h"
#include "tests/contract/linux/gtk/ExportedModel.h"
#include "tests/contract/session/DesktopControl.h"
#include "tests/contract/session/FixtureProgram.h"
#include "tests/contract/session/ScriptedApplication.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace tarnwick::desktop_control;
using namespace tarnwick::exported;
using namespace Qt::StringLiterals;

namespace {

constexpr int Limit = 30'000; // ms
const QStringList Editor{u"File"_s, u"Edit"_s, u"View"_s, u"Help"_s};
const QStringList Exported{u"Exported"_s};

class ExportedBarsTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!FixtureProgram::exists(u"gtk4"_s) && !qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS"))
            GTEST_SKIP() << "no fixture program of gtk4";
    }
    ExportedBarsTest()
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return windows.managed(); }, Limit)) << "no window manager";
        exporter.setInterceptor([this](sd_bus_message* call) {
            const QByteArrayView member = sd_bus_message_get_member(call);
            if (member == "Start")
                return answer(call, [this](sd_bus_message* reply) {
                    const std::lock_guard lock(_mutex);
                    append(reply, QList<exported::Menu>{{{0, 0}, {_entry}}});
                });
            if (member == "DescribeAll")
                return answer(call, [](sd_bus_message* reply) { append(reply, QList<Action>()); });
            return true;
        });
    }

    /// The window of a program once it is in front, made to export what the test exports.
    xcb_window_t exportingWindowOf(const FixtureProgram& program)
    {
        // Numbers of windows are used again: the one that was in front before may be another's by now.
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                return windows.windowsOf(program.processIdentifier())
                    .contains(reading->front->current().window);
            },
            Limit));
        const xcb_window_t window = reading->front->current().window;
        setText(x11, window, "_GTK_UNIQUE_BUS_NAME", exporter.service());
        setText(x11, window, "_GTK_MENUBAR_OBJECT_PATH", "/menus");
        return window;
    }

    /// The only entry of the exported bar from now on.
    void exportOnly(const Entry& entry)
    {
        const std::lock_guard lock(_mutex);
        _entry = entry;
    }

    QVariant read(const UIElementRef& of, const QString& attribute)
    {
        return accessibility.copyAttributeValue(of, attribute).value_or(QVariant());
    }
    UIElementRef bar()
    {
        const auto front =
            read(accessibility.createSystemWide(), u"AXFocusedApplication"_s).value<UIElementRef>();
        return read(front, u"AXMenuBar"_s).value<UIElementRef>();
    }
    QStringList titlesIn(const UIElementRef& menu)
    {
        QStringList found;
        const QVariantList entries = read(menu, AXChildrenAttribute).toList();
        for (const QVariant& entry : entries)
            found.append(read(entry.value<UIElementRef>(), AXTitleAttribute).toString());
        return found;
    }
    QStringList titles()
    {
        QTest::qWait(1);
        return titlesIn(bar());
    }
    /// Of the menu that is reached by these titles from the bar.
    UIElementRef menuAt(const QStringList& path)
    {
        UIElementRef menu = bar();
        for (const QString& title : path) {
            const QVariantList entries = read(menu, AXChildrenAttribute).toList();
            menu = {};
            for (const QVariant& entry : entries)
                if (const auto item = entry.value<UIElementRef>(); read(item, AXTitleAttribute) == title)
                    menu = read(item, AXChildrenAttribute).toList().value(0).value<UIElementRef>();
        }
        return menu;
    }
    QStringList titlesAt(const QStringList& path)
    {
        QTest::qWait(1);
        return titlesIn(menuAt(path));
    }
    bool waitForTitles(const QStringList& expected)
    {
        return QTest::qWaitFor([&] { return titles() == expected; }, Limit);
    }

private:
    std::mutex _mutex;
    Entry _entry = submenu("_Exported", {1, 0});

protected:
    ScriptedApplication exporter{qgetenv("DBUS_SESSION_BUS_ADDRESS"),
                                 {},
                                 QMap<QByteArray, ScriptedApplication::Object>(),
                                 {"example.Exporter"}};
    std::shared_ptr<LinuxReading> reading = std::make_shared<LinuxReading>(&X11FrontApplication::make);
    AtspiAccessibility accessibility{reading};
    bool enabled = accessibility.apiEnabled();
    X11Connection& x11 = X11Connection::shared();
    X11Windows windows{x11};
};

} // namespace

TEST_F(ExportedBarsTest, aBarInTheTree_goesBeforeAnExportedOne)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt6"_s}) {
        const FixtureProgram program(toolkit);
        exportingWindowOf(program);
        EXPECT_TRUE(waitForTitles(Editor)) << toolkit.toStdString();
        QTest::qWait(300);
        EXPECT_EQ(titles(), Editor) << toolkit.toStdString();
    }
}

TEST_F(ExportedBarsTest, withoutABarInTheTree_theExportedOneCounts)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt6"_s}) {
        const FixtureProgram program(toolkit, {u"--no-bar"_s});
        exportingWindowOf(program);
        EXPECT_TRUE(waitForTitles(Exported)) << toolkit.toStdString();
    }
}

TEST_F(ExportedBarsTest, ofGtk4_theExportedBarGoesBeforeTheOneInTheTree)
{
    const FixtureProgram program(u"gtk4"_s, {u"--show-bar"_s});
    exportingWindowOf(program);
    EXPECT_TRUE(waitForTitles(Exported));
    QTest::qWait(300);
    EXPECT_EQ(titles(), Exported);
}

TEST_F(ExportedBarsTest, ofGtk4_aBarThatIsNotExportedHasNoEntries)
{
    const FixtureProgram program(u"gtk4"_s, {u"--show-bar"_s});
    const xcb_window_t window = exportingWindowOf(program);
    EXPECT_TRUE(waitForTitles(Exported));
    setText(x11, window, "_GTK_MENUBAR_OBJECT_PATH", {});
    EXPECT_TRUE(waitForTitles({}));
    QTest::qWait(300);
    EXPECT_EQ(titles(), QStringList()) << "what a press would do, nobody knows";
}

TEST_F(ExportedBarsTest, aDialog_hasTheBarThatItsWindowExports)
{
    const FixtureProgram program(u"gtk4"_s, {u"--dialog"_s});
    const auto dialog = [&] {
        for (const xcb_window_t window : windows.windowsOf(program.processIdentifier()))
            if (windows.title(window) == u"Fixture Dialog"_s)
                return window;
        return xcb_window_t{XCB_WINDOW_NONE};
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog() != XCB_WINDOW_NONE; }, Limit));
    activate(dialog());
    ASSERT_TRUE(QTest::qWaitFor([&] { return reading->front->current().window == dialog(); }, Limit));
    EXPECT_TRUE(waitForTitles(Editor));
}

TEST_F(ExportedBarsTest, ofAWindowThatNoXServerKnows_theExportsAreFoundByItsProcess)
{
    const FixtureProgram program(u"gtk4"_s, {u"--windows"_s, u"2"_s});
    const auto native = [&] {
        const AtspiWindow active = reading->tree.activeWindow.current();
        return FrontWindow{XCB_WINDOW_NONE, active.processIdentifier, active.reference};
    };
    // The one that opens last takes the focus.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const FrontWindow front = reading->front->current();
            return windows.title(front.window).value_or(QString()).endsWith(u" 2"_s);
        },
        Limit));
    const auto isInFront = [&](bool second) {
        const QList<xcb_window_t> all = windows.windowsOf(program.processIdentifier());
        const auto titled = std::find_if(all.cbegin(), all.cend(), [&](xcb_window_t window) {
            return windows.title(window).value_or(QString()).endsWith(u" 2"_s) == second;
        });
        if (titled == all.cend())
            return false;
        activate(*titled);
        return QTest::qWaitFor([&] { return reading->front->current().window == *titled; }, 500);
    };
    for (const auto& [second, path] : {std::pair{false, "/org/tarnwick/MenuFixture/window/1"},
                                       std::pair{true, "/org/tarnwick/MenuFixture/window/2"}}) {
        ASSERT_TRUE(QTest::qWaitFor([&, second = second] { return isInFront(second); }, Limit));
        const auto placeIs = [&](const QByteArray& windowActions) {
            const FoundMenuBar found = reading->menuBars.of(native());
            const auto place = GtkMenuPlace::fromPath(found.bar.path);
            return found.source == &reading->exports.menus && place &&
                   place->windowActions == windowActions &&
                   place->menus == "/org/tarnwick/MenuFixture/menus/menubar" &&
                   place->applicationActions == "/org/tarnwick/MenuFixture";
        };
        EXPECT_TRUE(QTest::qWaitFor([&, path = path] { return placeIs(path); }, Limit)) << path;
        QStringList titles;
        const FoundMenuBar found = reading->menuBars.of(native());
        for (const MenuRow& row : found.source->readBar(found.bar).value_or(QList<MenuRow>()))
            titles.append(row.title);
        EXPECT_EQ(titles, Editor);
    }
}

TEST_F(ExportedBarsTest, menusThatAreEmptyInTheTree_areFilledByALookAtWhatAModuleExports)
{
    const FixtureProgram program(u"gtk3"_s, {u"--module"_s}, u"kinds"_s);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return titles() == QStringList{u"File"_s, u"View"_s, u"Keys"_s, u"Late"_s};
        },
        Limit));
    EXPECT_EQ(titlesAt({u"Late"_s}), QStringList(u"Only Then"_s));
    EXPECT_EQ(titlesAt({u"File"_s, u"Open Recent"_s}), (QStringList{u"one.txt"_s, u"two.txt"_s}));
}

TEST_F(ExportedBarsTest, anExportedBarWithoutEntries_isNone)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    exportingWindowOf(program);
    EXPECT_TRUE(waitForTitles(Exported));
    exportOnly({{"action", "unity.0"}});
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            QTest::qWait(1);
            return !reading->menuBars.of(reading->front->current());
        },
        Limit));
}

TEST_F(ExportedBarsTest, propertiesThatMakeNoSense_areNoBar)
{
    const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
        {"no path", exporter.service(), {}},
        {"a path that is none", exporter.service(), "menus"},
        {"a path with blanks", exporter.service(), "/menus /app"},
        {"no name", {}, "/menus"},
        {"a name that is none", "1.5", "/menus"},
        {"a name that a program may be started for", "org.a11y.Bus", "/menus"},
        {"a name that another program may have next", "example.Exporter", "/menus"},
    };
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    const xcb_window_t window = exportingWindowOf(program);
    EXPECT_TRUE(waitForTitles(Exported));
    // Nobody waits for the end of a look: it may come to the exporter later.
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return exporter.count(u"Start"_s) == exporter.count(u"End"_s); }, Limit));
    for (const auto& [sentence, service, path] : rows) {
        setText(x11, window, "_GTK_UNIQUE_BUS_NAME", service);
        setText(x11, window, "_GTK_MENUBAR_OBJECT_PATH", path);
        exporter.forgetCalls();
        EXPECT_EQ(titles(), QStringList()) << sentence;
        EXPECT_EQ(exporter.calls(), QStringList()) << sentence;
    }
}

TEST_F(ExportedBarsTest, anExporterThatIsGone_costsNothing)
{
    const FixtureProgram program(u"gtk3"_s, {u"--no-bar"_s});
    const xcb_window_t window = exportingWindowOf(program);
    EXPECT_TRUE(waitForTitles(Exported));
    setText(x11, window, "_GTK_UNIQUE_BUS_NAME", ":1.99999");
    FairTimer time;
    time.start();
    EXPECT_EQ(titles(), QStringList());
    EXPECT_LE(time.fairElapsed(), 300);
}
