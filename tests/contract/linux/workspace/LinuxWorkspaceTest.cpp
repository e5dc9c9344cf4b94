// SPDX-License-Identifier: MIT
// The window in front, its switches and its attributes, under a window manager and without one.
#include "platform/linux/workspace/LinuxWorkspace.h"

#include "ax/AXValue.h"
#include "ax/UIElementUtilities.h"
#include "menu/Menu.h"
#include "platform/linux/elements/AtspiAccessibility.h"
#include "platform/linux/workspace/X11FrontApplication.h"
#include "platform/linux/x11/LinuxScreens.h"
#include "platform/linux/x11/X11Property.h"
#include "platform/linux/x11/X11WindowFrame.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/FairTimer.h"
#include "tests/contract/foundation/WorkspaceContract.h"
#include "tests/contract/session/DesktopControl.h"
#include "tests/contract/session/FixtureProgram.h"
#include "tests/contract/session/TwoMonitors.h"
#include "tests/fakes/FakeApplication.h"

#include <QSignalSpy>
#include <QWidget>
#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <memory>

using namespace tarnwick;
using namespace tarnwick::desktop_control;
using namespace Qt::StringLiterals;

namespace {

constexpr int Limit = 10'000; // ms

class LinuxWorkspaceTest : public ::testing::Test
{
protected:
    LinuxWorkspaceTest()
    {
        Application::setShared(&application);
        EXPECT_TRUE(QTest::qWaitFor([&] { return windows.managed(); }, Limit)) << "no window manager";
        EXPECT_TRUE(accessibility.apiEnabled());
        EXPECT_TRUE(workspace.installAppFrontSwitchedHandler(
            [this] { switches.append(workspace.activeProcessIdentifier().value_or(-1)); }));
    }

    ~LinuxWorkspaceTest() override { Application::setShared(nullptr); }

    std::optional<QVariant> value(const UIElementRef& of, const QString& attribute)
    {
        return accessibility.copyAttributeValue(of, attribute);
    }
    UIElementRef element(const UIElementRef& of, const QString& attribute)
    {
        return value(of, attribute).value_or(QVariant()).value<UIElementRef>();
    }
    UIElementRef frontApplication()
    {
        return element(accessibility.createSystemWide(), u"AXFocusedApplication"_s);
    }
    UIElementRef frontWindow() { return element(frontApplication(), u"AXFocusedWindow"_s); }
    QString text(const UIElementRef& of, const QString& attribute)
    {
        return value(of, attribute).value_or(QVariant()).toString();
    }
    QStringList barTitles()
    {
        QStringList titles;
        const auto children = value(element(frontApplication(), u"AXMenuBar"_s), AXChildrenAttribute);
        for (const QVariant& child : children.value_or(QVariant()).toList())
            titles.append(text(child.value<UIElementRef>(), AXTitleAttribute));
        return titles;
    }

    bool isFront(const FixtureProgram& program)
    {
        return workspace.activeProcessIdentifier() == program.processIdentifier() && !barTitles().isEmpty();
    }
    bool waitUntilFront(const FixtureProgram& program)
    {
        return QTest::qWaitFor([&] { return isFront(program); }, Limit);
    }
    /// Asks a window manager that has just begun: what it is asked before it knows the window is lost.
    bool bringToFront(xcb_window_t window, const FixtureProgram& program)
    {
        return QTest::qWaitFor(
            [&] {
                activate(window);
                return isFront(program);
            },
            Limit);
    }
    /// The program's window with this title, once it is there.
    xcb_window_t windowOf(const FixtureProgram& program, const QString& title)
    {
        xcb_window_t found = XCB_WINDOW_NONE;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                for (const xcb_window_t window : windows.windowsOf(program.processIdentifier()))
                    if (windows.title(window) == title)
                        found = window;
                return found != XCB_WINDOW_NONE;
            },
            Limit))
            << title.toStdString();
        return found;
    }
    bool waitUntilActive(xcb_window_t window)
    {
        return QTest::qWaitFor([&] { return reading->front->current().window == window; }, Limit);
    }
    /// Activates without letting the event loop run, as while a handler sleeps.
    void activateAsleep(xcb_window_t window)
    {
        activate(window);
        for (int i = 0; i < 500 && reading->front->current().window != window; ++i)
            QTest::qSleep(10);
        QTest::qSleep(30);
    }
    static void map(xcb_window_t window)
    {
        xcb_map_window(X11Connection::shared().get(), window);
        X11Connection::shared().sync();
        activate(window);
    }
    static void unmap(xcb_window_t window)
    {
        xcb_unmap_window(X11Connection::shared().get(), window);
        X11Connection::shared().sync();
    }
    bool waitUntilAnnounced(const FixtureProgram& program)
    {
        return QTest::qWaitFor([&] { return switches.contains(program.processIdentifier()); }, Limit);
    }
    bool waitForSwitches(qsizetype count)
    {
        const bool came = QTest::qWaitFor([&] { return switches.size() >= count; }, Limit);
        QTest::qWait(50); // one too many would have come by now
        return came;
    }

    FakeApplication application;
    std::shared_ptr<LinuxReading> reading = std::make_shared<LinuxReading>(&X11FrontApplication::make);
    AtspiAccessibility accessibility{reading};
    LinuxWorkspace workspace{reading};
    X11Windows windows{X11Connection::shared()};

    /// Where the X server is one of a Wayland session, with a native window that a test makes up.
    bool findsNative = false;
    AtspiWindow native;
    int nativeQuestions = 0;
    FrontHint lastHint;
    std::shared_ptr<LinuxReading> nativeReading = std::make_shared<LinuxReading>([this](AtspiActiveWindow&) {
        return std::make_unique<X11FrontApplication>([this](const FrontHint& hint) {
            ++nativeQuestions;
            lastHint = hint;
            return findsNative ? native : AtspiWindow();
        });
    });
    QList<qint64> switches; ///< the active process at each announcement; -1 when none is active
};

} // namespace

TEST_F(LinuxWorkspaceTest, keepsTheContract)
{
    std::map<qint64, std::unique_ptr<const FixtureProgram>> programs;
    const auto start = [&](const QString& toolkit) {
        auto program = std::make_unique<const FixtureProgram>(toolkit);
        EXPECT_TRUE(waitUntilFront(*program));
        const qint64 processIdentifier = program->processIdentifier();
        programs[processIdentifier] = std::move(program);
        return processIdentifier;
    };
    const qint64 first = start(u"gtk3"_s);
    const qint64 second = start(u"qt6"_s);
    ASSERT_TRUE(waitForSwitches(2));
    const xcb_window_t other = makeWindow({}); // in front until the contract begins
    ASSERT_TRUE(waitUntilActive(other));
    ASSERT_TRUE(waitForSwitches(3));

    LinuxWorkspace subject(reading);
    WorkspaceContract contract({.workspace = subject,
                                .first = first,
                                .second = second,
                                .bringToFront =
                                    [&](qint64 processIdentifier) {
                                        const auto before = switches.size();
                                        const FixtureProgram& program = *programs.at(processIdentifier);
                                        activate(windowOf(program, u"Fixture"_s));
                                        EXPECT_TRUE(waitUntilFront(program));
                                        EXPECT_TRUE(waitForSwitches(before + 1));
                                    },
                                .leaveNothingInFront =
                                    [&] {
                                        programs.clear();
                                        destroy(other);
                                        EXPECT_TRUE(waitUntilActive(XCB_WINDOW_NONE));
                                    },
                                .titleOf =
                                    [this](qint64 processIdentifier) {
                                        return text(accessibility.createApplication(processIdentifier),
                                                    AXTitleAttribute);
                                    }});
    contract.run();
}

TEST_F(LinuxWorkspaceTest, everySwitchOfProcess_isAnnouncedOnce)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    EXPECT_TRUE(waitForSwitches(1));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(second));
    EXPECT_TRUE(waitForSwitches(2));
    activate(windowOf(first, u"Fixture"_s));
    ASSERT_TRUE(waitUntilFront(first));
    EXPECT_TRUE(waitForSwitches(3));
    EXPECT_EQ(switches, (QList<qint64>{first.processIdentifier(), second.processIdentifier(),
                                       first.processIdentifier()}));
    EXPECT_EQ(workspace.activeApplication()->name, u"menu_fixture_gtk3"_s);
    EXPECT_EQ(text(frontApplication(), AXTitleAttribute), u"menu_fixture_gtk3"_s);
    EXPECT_EQ(value(frontApplication(), u"AXFrontmost"_s), QVariant(true));
    EXPECT_EQ(value(accessibility.createApplication(second.processIdentifier()), u"AXFrontmost"_s),
              QVariant(false));
}

TEST_F(LinuxWorkspaceTest, theProcessInFront_isToldWithoutWaitingForIt)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    QTest::qWait(1);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGSTOP);
    FairTimer time;
    time.start();
    EXPECT_EQ(workspace.activeProcessIdentifier(), program.processIdentifier());
    EXPECT_LE(time.fairElapsed(), 200);
    EXPECT_EQ(workspace.activeApplication()->name, u"menu_fixture_gt"_s) << "of its executable file";
    EXPECT_GE(time.elapsed(), 450) << "the name would come from the program";
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
}

TEST_F(LinuxWorkspaceTest, switchesWhileTheProgramSleeps_areNotMerged)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(second));
    const xcb_window_t firstWindow = windowOf(first, u"Fixture"_s);
    const xcb_window_t secondWindow = windowOf(second, u"Fixture"_s);
    ASSERT_TRUE(waitForSwitches(2));
    switches.clear();
    activateAsleep(firstWindow);
    activateAsleep(secondWindow);
    activateAsleep(firstWindow);
    activateAsleep(secondWindow);
    EXPECT_EQ(switches.size(), 0) << "nothing is announced but from the event loop";
    EXPECT_TRUE(waitForSwitches(4));
    EXPECT_EQ(switches.size(), 4);
}

TEST_F(LinuxWorkspaceTest, switches_countFromTheMomentThatSomebodyWantsToHearOfThem)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    LinuxWorkspace late(reading);
    const xcb_window_t alert = makeWindow({});
    ASSERT_TRUE(waitUntilActive(alert));
    int announced = 0;
    ASSERT_TRUE(late.installAppFrontSwitchedHandler([&] { ++announced; }));
    QTest::qWait(50);
    EXPECT_EQ(announced, 0);
    destroy(alert);
    ASSERT_TRUE(waitUntilFront(program));
    EXPECT_TRUE(QTest::qWaitFor([&] { return announced > 0; }, Limit))
        << "it was in front before the alert, but not when that was";
    QTest::qWait(50);
    EXPECT_EQ(announced, 1);
}

TEST_F(LinuxWorkspaceTest, changesThatHaveYetToBeTold_areNoSwitchesForWhoComesAfterThem)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    const xcb_window_t window = windowOf(program, u"Fixture"_s);
    const xcb_window_t alert = makeWindow({});
    ASSERT_TRUE(waitUntilActive(alert));
    ASSERT_TRUE(waitForSwitches(2));
    LinuxWorkspace late(reading);
    activateAsleep(window);
    activateAsleep(alert);
    int announced = 0;
    ASSERT_TRUE(late.installAppFrontSwitchedHandler([&] { ++announced; }));
    EXPECT_TRUE(waitForSwitches(4)) << "for who was there before";
    EXPECT_EQ(announced, 0);
    destroy(alert);
    EXPECT_TRUE(waitForSwitches(5));
    EXPECT_EQ(announced, 1);
}

TEST_F(LinuxWorkspaceTest, whoAsksForTheFrontToBeAnnounced_isAnsweredAfterTheSwitches)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(second));
    ASSERT_TRUE(waitForSwitches(2));
    QList<qsizetype> announced;
    const auto ask = [&] {
        workspace.announcements().announceFrontThen([&] { announced.append(switches.size()); });
    };
    ask();
    EXPECT_EQ(announced, QList<qsizetype>{2}) << "at once, with nothing to announce";
    activateAsleep(windowOf(first, u"Fixture"_s));
    activateAsleep(windowOf(second, u"Fixture"_s));
    QMetaObject::invokeMethod(&workspace.announcements(), ask, Qt::QueuedConnection);
    EXPECT_TRUE(QTest::qWaitFor([&] { return announced.size() == 2; }, Limit));
    EXPECT_EQ(announced.last(), 4);
}

TEST_F(LinuxWorkspaceTest, whoAsksForTheSwitchesSoFar_isAnsweredAfterThoseThatAreYetToBeLookedAt)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(second));
    ASSERT_TRUE(waitForSwitches(2));
    const xcb_window_t firstWindow = windowOf(first, u"Fixture"_s);
    const xcb_window_t secondWindow = windowOf(second, u"Fixture"_s);
    // Each is looked at with several questions: when the last one has been told, these have only begun.
    for (int i = 0; i < 100; ++i) {
        tellActive(firstWindow);
        tellActive(secondWindow);
    }
    tellActive(firstWindow);
    std::optional<qint64> announcedLast;
    workspace.announcements().afterSwitchesSoFar([&] { announcedLast = switches.constLast(); });
    EXPECT_FALSE(announcedLast) << "from the event loop only";
    EXPECT_TRUE(QTest::qWaitFor([&] { return announcedLast.has_value(); }, Limit));
    EXPECT_EQ(announcedLast, first.processIdentifier());
    tellActive(secondWindow);
}

TEST_F(LinuxWorkspaceTest, theActiveWindowOfTheTree_isThatOfTheProgramInFront)
{
    AtspiActiveWindow& inTree = reading->tree.activeWindow;
    EXPECT_FALSE(inTree.current());
    for (const QString& toolkit : {u"gtk3"_s, u"qt5"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit);
        ASSERT_TRUE(waitUntilFront(program));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return inTree.current().processIdentifier == program.processIdentifier(); }, Limit));
    }
}

TEST_F(LinuxWorkspaceTest, theWindowOfTheTreeThatIsTold_isThatProcesss_orNone)
{
    const FixtureProgram notes(u"gtk3"_s, {u"--title"_s, u"Notes"_s});
    ASSERT_TRUE(waitUntilFront(notes));
    const FixtureProgram active(u"qt6"_s, {u"--title"_s, u"Letters"_s});
    ASSERT_TRUE(waitUntilFront(active));
    AtspiActiveWindow& inTree = reading->tree.activeWindow;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return inTree.current().processIdentifier == active.processIdentifier(); }, Limit));

    struct Row
    {
        const char* name;
        std::optional<qint64> processIdentifier;
        std::optional<QString> title;
        std::optional<qint64> found;
    };
    const qint64 ofNobody = getpid();
    const Row rows[] = {
        {"a process that says it has no active window",
         notes.processIdentifier(),
         {},
         notes.processIdentifier()},
        {"with a title that is not its window's", notes.processIdentifier(), u"Letters"_s,
         notes.processIdentifier()},
        {"the active one", active.processIdentifier(), u"Letters"_s, active.processIdentifier()},
        {"a process without windows, and the active title", ofNobody, u"Letters"_s,
         active.processIdentifier()},
        {"a process without windows, and another title", ofNobody, u"Notes"_s, {}},
        {"a process without windows", ofNobody, {}, {}},
        {"the active title", {}, u"Letters"_s, active.processIdentifier()},
        {"another title: the active one is in front", {}, u"Notes"_s, active.processIdentifier()},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const AtspiWindow window = inTree.current(row.processIdentifier, row.title);
        EXPECT_EQ(window.processIdentifier, row.found);
        EXPECT_EQ(bool(window), row.found.has_value());
    }
}

TEST_F(LinuxWorkspaceTest, aWindowThatOnlyTheTreeKnows_isInFrontAsLongAsNoOtherIs)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    const QStringList titles = barTitles();
    const xcb_window_t window = windowOf(program, u"Fixture"_s);
    findsNative = true;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            native = {nativeReading->tree.activeWindow.current().reference, program.processIdentifier()};
            return bool(native);
        },
        Limit))
        << "the tree tells of it a moment after the server";
    FrontApplication& front = *nativeReading->front;
    EXPECT_FALSE(front.lookAgain());
    EXPECT_FALSE(front.lookAgainFor({{}, 1, {}})) << "the server's own word goes before";
    EXPECT_FALSE(front.current().isNative());
    findsNative = false;
    unmap(window);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !front.current(); }, Limit))
        << "in a session where the server knows all windows, nothing is beside it";
    findsNative = true;
    EXPECT_FALSE(front.current()) << "nobody tells of it";
    const FrontHint hint{QPoint(1, 2), program.processIdentifier(), u"Fixture"_s};
    EXPECT_TRUE(front.lookAgainFor(hint));
    EXPECT_EQ(lastHint, hint);
    EXPECT_TRUE(front.lookAgain());
    EXPECT_EQ(lastHint, FrontHint()) << "it is good for one look";
    EXPECT_TRUE(front.current().isNative());
    EXPECT_EQ(front.current(), (FrontWindow{XCB_WINDOW_NONE, program.processIdentifier(), native.reference}));
    AtspiAccessibility overNative(nativeReading);
    EXPECT_EQ(LinuxWorkspace(nativeReading).activeApplication()->processIdentifier,
              program.processIdentifier());
    const auto read = [&](const UIElementRef& of, const QString& attribute) {
        return overNative.copyAttributeValue(of, attribute).value_or(QVariant());
    };
    const auto inFront = read(overNative.createSystemWide(), u"AXFocusedApplication"_s).value<UIElementRef>();
    const auto ofInFront = read(inFront, u"AXFocusedWindow"_s).value<UIElementRef>();
    EXPECT_EQ(read(ofInFront, AXTitleAttribute), u"Fixture"_s);
    EXPECT_FALSE(read(ofInFront, u"AXPosition"_s).isValid()) << "nobody tells where it is on the screen";
    const auto bar = read(inFront, u"AXMenuBar"_s).value<UIElementRef>();
    QStringList titlesOverNative;
    for (const QVariant& entry : read(bar, AXChildrenAttribute).toList())
        titlesOverNative.append(read(entry.value<UIElementRef>(), AXTitleAttribute).toString());
    EXPECT_EQ(titlesOverNative, titles);
}

TEST_F(LinuxWorkspaceTest, aNativeWindow_isLookedForWhenNoOtherIsInFront_ifSomebodyWantsToHearOfIt)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    const xcb_window_t window = windowOf(program, u"Fixture"_s);
    findsNative = true;
    native = {{":1.1", "/window", 1}, 1};
    FrontApplication& front = *nativeReading->front;
    QList<FrontWindow> told;
    QObject::connect(&front, &FrontApplication::changed, &front,
                     [&](const FrontWindow& changed) { told.append(changed); });
    const auto changeTo = [&](const FrontWindow& next) {
        const qsizetype before = told.size();
        if (next.window == XCB_WINDOW_NONE)
            unmap(window);
        else
            map(window);
        return QTest::qWaitFor([&] { return told.size() > before && told.last() == next; }, Limit);
    };
    const FrontWindow beside{XCB_WINDOW_NONE, 1, native.reference};
    const FrontWindow own{window, program.processIdentifier()};
    EXPECT_TRUE(changeTo({}));
    EXPECT_EQ(nativeQuestions, 0) << "nobody wants to hear of it yet";
    EXPECT_TRUE(changeTo(own));
    ASSERT_TRUE(front.watch());
    EXPECT_TRUE(changeTo(beside));
    EXPECT_EQ(front.current(), beside);
    EXPECT_TRUE(changeTo(own));
    EXPECT_EQ(front.current(), own);
    EXPECT_EQ(nativeQuestions, 1);
}

TEST_F(LinuxWorkspaceTest, aWaylandSession_isToldOf)
{
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("XDG_SESSION_TYPE", "x11");
    EXPECT_TRUE(workspace.commandThatPopsUp().isEmpty());
    qputenv("XDG_SESSION_TYPE", "wayland");
    EXPECT_EQ(workspace.commandThatPopsUp(), u"gapplication action example.quorlane.Tarnwick pop-up"_s);
    qunsetenv("XDG_SESSION_TYPE");
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_FALSE(workspace.commandThatPopsUp().isEmpty());
    qunsetenv("WAYLAND_DISPLAY");
}

TEST_F(LinuxWorkspaceTest, aSwitchWithinTheHandler_isAnnouncedAfterIt)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    const xcb_window_t firstWindow = windowOf(first, u"Fixture"_s);
    ASSERT_TRUE(waitForSwitches(1));
    int depth = 0;
    int calls = 0;
    ASSERT_TRUE(workspace.installAppFrontSwitchedHandler([&] {
        EXPECT_EQ(depth++, 0) << "within itself";
        if (++calls == 1)
            activateAsleep(firstWindow);
        --depth;
    }));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return calls >= 2; }, Limit));
    QTest::qWait(50);
    EXPECT_EQ(calls, 2);
}

TEST_F(LinuxWorkspaceTest, aSecondWindowOfTheSameProgram_isASwitchWithItsOwnBar)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt5"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit, {u"--windows"_s, u"2"_s});
        ASSERT_TRUE(waitUntilFront(program));
        const xcb_window_t one = windowOf(program, u"Fixture"_s);
        const xcb_window_t two = windowOf(program, u"Fixture 2"_s);
        activate(one);
        ASSERT_TRUE(waitUntilActive(one));
        QTest::qWait(100);
        switches.clear();
        activate(two);
        ASSERT_TRUE(waitUntilActive(two));
        EXPECT_TRUE(waitForSwitches(1));
        EXPECT_TRUE(barTitles().contains(u"Window 2"_s)) << barTitles().join(u' ').toStdString();
        QTest::qWait(1);
        activate(one);
        ASSERT_TRUE(waitUntilActive(one));
        EXPECT_TRUE(waitForSwitches(2));
        EXPECT_FALSE(barTitles().contains(u"Window 2"_s)) << barTitles().join(u' ').toStdString();
        EXPECT_EQ(switches.size(), 2);
        EXPECT_EQ(value(frontApplication(), u"AXWindows"_s)->toList().size(), 2);
    }
}

TEST_F(LinuxWorkspaceTest, aBarThatReplacesAnotherOne_isTheWindowsFromThenOn)
{
    for (const QString& toolkit : {u"qt5"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit, {u"--new-bar"_s});
        ASSERT_TRUE(waitUntilFront(program));
        ASSERT_TRUE(barTitles().contains(u"File"_s));
        QTest::qWait(1);
        kill(static_cast<pid_t>(program.processIdentifier()), SIGUSR1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return barTitles() == QStringList(u"Second"_s); }, Limit));
    }
}

TEST_F(LinuxWorkspaceTest, aDialog_hasTheBarOfItsOwnWindow_notOfTheFirst)
{
    const FixtureProgram program(u"gtk3"_s, {u"--windows"_s, u"2"_s, u"--dialog"_s});
    const xcb_window_t second = windowOf(program, u"Fixture 2"_s);
    const xcb_window_t dialog = windowOf(program, u"Fixture Dialog"_s);
    setNumber(X11Connection::shared(), dialog, "WM_TRANSIENT_FOR", second);
    activate(dialog);
    ASSERT_TRUE(waitUntilActive(dialog));
    EXPECT_TRUE(QTest::qWaitFor([this] { return barTitles().contains(u"Window 2"_s); }, Limit));
}

TEST_F(LinuxWorkspaceTest, aProgramBehind_hasTheWindowThatCameLast)
{
    const FixtureProgram behind(u"gtk3"_s, {u"--windows"_s, u"2"_s});
    ASSERT_TRUE(waitUntilFront(behind));
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return windows.windowsOf(behind.processIdentifier()).size() == 2; }, Limit));
    const FixtureProgram front(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(front));
    const QList<xcb_window_t> both = windows.windowsOf(behind.processIdentifier());
    ASSERT_NE(windows.title(both.first()), windows.title(both.last()));
    const UIElementRef window =
        element(accessibility.createApplication(behind.processIdentifier()), u"AXFocusedWindow"_s);
    EXPECT_EQ(text(window, AXTitleAttribute), windows.title(both.last()));
}

TEST_F(LinuxWorkspaceTest, windowsOfTheSameTitle_haveEachItsOwnBar)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt5"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit, {u"--windows"_s, u"2"_s, u"--same-title"_s});
        ASSERT_TRUE(waitUntilFront(program));
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return windows.windowsOf(program.processIdentifier()).size() == 2; }, Limit));
        const QList<xcb_window_t> both = windows.windowsOf(program.processIdentifier());
        EXPECT_EQ(windows.title(both[0]), windows.title(both[1]));
        const auto isSecond = [&](xcb_window_t window) {
            activate(window);
            EXPECT_TRUE(waitUntilActive(window));
            QTest::qWait(200); // the program says which is active a moment later
            return barTitles().contains(u"Window 2"_s);
        };
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const bool first = isSecond(both[0]);
                return isSecond(both[1]) != first && isSecond(both[0]) == first && isSecond(both[1]) != first;
            },
            Limit));
    }
}

TEST_F(LinuxWorkspaceTest, aDialog_isNoSwitchAndHasItsWindowsBar)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt5"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit, {u"--dialog"_s});
        const xcb_window_t dialog = windowOf(program, u"Fixture Dialog"_s);
        activate(dialog);
        ASSERT_TRUE(waitUntilActive(dialog));
        ASSERT_TRUE(QTest::qWaitFor([&] { return barTitles().contains(u"File"_s); }, Limit))
            << "its bar can be read meanwhile";
        EXPECT_EQ(text(frontWindow(), u"AXRoleDescription"_s), u"sheet"_s) << "modal to its window";
        EXPECT_EQ(text(frontWindow(), AXTitleAttribute), u"Fixture Dialog"_s);
        EXPECT_EQ(value(frontWindow(), u"AXMain"_s), QVariant(false));
        EXPECT_TRUE(waitUntilAnnounced(program));
        QTest::qWait(100);
        switches.clear();
        activate(windowOf(program, u"Fixture"_s));
        QTest::qWait(200);
        activate(dialog);
        QTest::qWait(200);
        EXPECT_TRUE(switches.isEmpty());
    }
}

TEST_F(LinuxWorkspaceTest, aWindowWithoutABarOfItsOwn_hasThatOfAnotherOfItsProgram)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit, {u"--dialog"_s});
        const xcb_window_t dialog = windowOf(program, u"Fixture Dialog"_s);
        const xcb_window_t window = windowOf(program, u"Fixture"_s);
        activate(window);
        ASSERT_TRUE(QTest::qWaitFor([&] { return barTitles().contains(u"File"_s); }, Limit));
        X11Connection& x11 = X11Connection::shared();
        xcb_delete_property(x11.get(), dialog, XCB_ATOM_WM_TRANSIENT_FOR);
        x11.sync();
        EXPECT_TRUE(waitUntilAnnounced(program));
        QTest::qWait(100);
        switches.clear();
        for (const xcb_window_t next : {dialog, window, dialog}) {
            activate(next);
            QTest::qWait(200);
            EXPECT_TRUE(QTest::qWaitFor([&] { return barTitles().contains(u"File"_s); }, Limit));
        }
        EXPECT_TRUE(switches.isEmpty()) << "the bar's owner is the same";
    }
}

TEST_F(LinuxWorkspaceTest, withoutAWindow_thereIsAnApplicationWithoutAMenuBar)
{
    {
        const FixtureProgram program(u"qt6"_s);
        ASSERT_TRUE(waitUntilFront(program));
        ASSERT_TRUE(waitForSwitches(1));
        switches.clear();
    }
    EXPECT_TRUE(waitForSwitches(1));
    EXPECT_EQ(switches, QList<qint64>{-1});
    EXPECT_FALSE(workspace.activeApplication());
    const UIElementRef none = frontApplication();
    ASSERT_TRUE(none);
    EXPECT_EQ(text(none, AXRoleAttribute), AXApplicationRole);
    EXPECT_FALSE(value(none, u"AXMenuBar"_s));
    EXPECT_FALSE(accessibility.copyAttributeNames(none)->contains(u"AXMenuBar"_s));
    EXPECT_FALSE(accessibility.getPid(none));
}

TEST_F(LinuxWorkspaceTest, docksTooltipsNotificationsAndUnmanagedWindows_doNotCount)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    ASSERT_TRUE(waitForSwitches(1));
    const xcb_window_t own = windowOf(program, u"Fixture"_s);
    QList<xcb_window_t> others{makeWindow("DOCK"), makeWindow("TOOLTIP"), makeWindow("NOTIFICATION"),
                               makeWindow({}, true)};
    QTest::qWait(100);
    activate(own);
    ASSERT_TRUE(waitUntilActive(own));
    switches.clear();
    for (const xcb_window_t other : others) {
        tellActive(other);
        QTest::qWait(300);
        EXPECT_EQ(reading->front->current().window, own);
        EXPECT_EQ(barTitles().value(0), u"File"_s);
    }
    EXPECT_TRUE(switches.isEmpty());
    for (const xcb_window_t other : others)
        destroy(other);
}

TEST_F(LinuxWorkspaceTest, aShortNone_isNotASwitch)
{
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    ASSERT_TRUE(waitForSwitches(1));
    const xcb_window_t own = windowOf(program, u"Fixture"_s);
    std::optional<Workspace::ActiveApplication> meanwhile;
    const auto wasShort = [&] {
        switches.clear();
        QElapsedTimer none;
        none.start();
        tellActive(XCB_WINDOW_NONE);
        meanwhile = workspace.activeApplication();
        tellActive(own);
        const bool inTime = none.elapsed() < 100;
        QTest::qWait(400);
        return inTime;
    };
    ASSERT_TRUE(QTest::qWaitFor(wasShort, Limit)) << "not on a machine that is busy for so long";
    ASSERT_TRUE(meanwhile);
    EXPECT_EQ(meanwhile->processIdentifier, program.processIdentifier());
    EXPECT_TRUE(switches.isEmpty());
}

TEST_F(LinuxWorkspaceTest, aSwitchWhileOurMenuIsOpen_closesItAndIsAnnouncedAfterwards)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    ASSERT_TRUE(waitForSwitches(1));
    switches.clear();
    QSignalSpy cancelled(&MenuTracking::shared(), &MenuTracking::cancelRequested);
    MenuTracking::shared().begin();
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return cancelled.count() > 0; }, Limit));
    QTest::qWait(100);
    EXPECT_TRUE(switches.isEmpty());
    MenuTracking::shared().end();
    EXPECT_TRUE(switches.isEmpty()) << "the call that popped the menu up has not returned";
    EXPECT_TRUE(waitForSwitches(1));
    EXPECT_EQ(switches, QList<qint64>{second.processIdentifier()});
}

TEST_F(LinuxWorkspaceTest, aWindow_isMovedAndResizedAsItReads)
{
    for (const QString& toolkit : {u"gtk3"_s, u"qt6"_s}) {
        SCOPED_TRACE(toolkit.toStdString());
        const FixtureProgram program(toolkit);
        ASSERT_TRUE(waitUntilFront(program));
        const UIElementRef window = frontWindow();
        const auto position = [&] { return value(window, AXPositionAttribute)->value<AXValue>(); };
        const auto size = [&] { return value(window, AXSizeAttribute)->value<AXValue>(); };
        EXPECT_EQ(text(window, AXRoleAttribute), u"AXWindow"_s);
        EXPECT_EQ(text(window, u"AXRoleDescription"_s), u"window"_s);
        EXPECT_EQ(text(window, AXTitleAttribute), u"Fixture"_s);
        EXPECT_EQ(value(window, u"AXMain"_s), QVariant(true));
        EXPECT_TRUE(element(window, AXParentAttribute) == frontApplication());
        EXPECT_EQ(accessibility.getPid(window), program.processIdentifier());
        EXPECT_EQ(accessibility.isAttributeSettable(window, AXPositionAttribute), true);
        EXPECT_EQ(accessibility.isAttributeSettable(window, AXSizeAttribute), true);
        EXPECT_EQ(accessibility.isAttributeSettable(window, AXTitleAttribute), false);

        const AXValue place(QPointF(150, 90));
        EXPECT_TRUE(accessibility.setAttributeValue(window, AXPositionAttribute, QVariant::fromValue(place)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return position() == place; }, Limit));
        const AXValue extent(QSizeF(500, 400));
        EXPECT_TRUE(accessibility.setAttributeValue(window, AXSizeAttribute, QVariant::fromValue(extent)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return size() == extent; }, Limit));
        EXPECT_TRUE(position() == place) << "the corner stays";
        EXPECT_FALSE(accessibility.setAttributeValue(window, AXSizeAttribute, QVariant::fromValue(place)));
        EXPECT_FALSE(accessibility.setAttributeValue(window, AXPositionAttribute, 7));
    }
}

TEST_F(LinuxWorkspaceTest, aWindowsPlace_isMeasuredFromTheFirstMonitorAsTheScreensAre)
{
    const TwoMonitors monitors;
    ASSERT_EQ(monitors.complaint(), QString());
    LinuxScreens screens;
    Screens::setShared(&screens);
    Accessibility::setShared(&accessibility);
    const FixtureProgram program(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(program));
    const UIElementRef window = frontWindow();
    X11WindowFrame onTheRoot(X11Connection::shared(), windowOf(program, u"Fixture"_s));
    for (const QPoint place : {QPoint(150, 90), QPoint(-400, -60)}) {
        const AXValue position{QPointF(place)};
        EXPECT_TRUE(
            accessibility.setAttributeValue(window, AXPositionAttribute, QVariant::fromValue(position)));
        const QPoint pixel = TwoMonitors::First.topLeft() + place;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const auto geometry = onTheRoot.geometry();
                return geometry && geometry->topLeft() == pixel;
            },
            Limit));
        EXPECT_EQ(value(window, AXPositionAttribute)->value<AXValue>(), position);
        const QRectF frame = UIElementUtilities::frameOfUIElement(window);
        EXPECT_EQ(frame.x(), place.x());
        EXPECT_EQ(frame.y() + frame.height(), TwoMonitors::First.height() - place.y());
        movePointer(pixel + QPoint(3, 5));
        EXPECT_EQ(screens.mouseLocation(), QPointF(frame.x() + 3, frame.y() + frame.height() - 5))
            << "it is over the window for both";
    }
    Accessibility::setShared(nullptr);
    Screens::setShared(nullptr);
}

TEST_F(LinuxWorkspaceTest, aWindowThatIsGone_readsAsMissing)
{
    const xcb_window_t window = makeWindow({});
    ASSERT_TRUE(waitUntilActive(window));
    const UIElementRef gone = frontWindow();
    destroy(window);
    for (const QString& attribute :
         {AXTitleAttribute, AXPositionAttribute, AXSizeAttribute, u"AXRoleDescription"_s, u"AXMain"_s})
        EXPECT_FALSE(value(gone, attribute)) << attribute.toStdString();
    EXPECT_FALSE(accessibility.setAttributeValue(gone, AXPositionAttribute,
                                                 QVariant::fromValue(AXValue(QPointF(1, 1)))));
}

TEST_F(LinuxWorkspaceTest, windowTypes_haveTheirWords)
{
    const std::pair<QByteArray, QString> rows[] = {
        {"NORMAL", u"window"_s},           {"DIALOG", u"dialog"_s}, {"UTILITY", u"floating window"_s},
        {"TOOLBAR", u"floating window"_s}, {"", u"window"_s},
    };
    for (const auto& [type, word] : rows) {
        const xcb_window_t window = makeWindow(type);
        activate(window);
        ASSERT_TRUE(waitUntilActive(window)) << type.toStdString();
        EXPECT_EQ(text(frontWindow(), u"AXRoleDescription"_s), word) << type.toStdString();
        destroy(window);
    }
}

TEST_F(LinuxWorkspaceTest, ourOwnWindow_isAnsweredWithoutTheBus)
{
    application.menuBar = Menu::create({});
    const auto item = MenuItem::create(u"Tarnwick"_s);
    item->setSubmenu(Menu::create(u"Tarnwick"_s));
    application.menuBar->addItem(item);
    QWidget window;
    window.show();
    ASSERT_TRUE(waitUntilActive(static_cast<xcb_window_t>(window.winId())));
    EXPECT_TRUE(waitForSwitches(1));
    EXPECT_EQ(switches.last(), QCoreApplication::applicationPid());
    FairTimer time;
    time.start();
    EXPECT_EQ(barTitles(), QStringList(u"Application"_s));
    EXPECT_LE(time.fairElapsed(), 250) << "asking ourselves over the bus would run into the limit";
    EXPECT_EQ(workspace.activeApplication()->name, QCoreApplication::applicationName());
}

TEST_F(LinuxWorkspaceTest, publishing_isSwitchedOnAndTheScreenReaderIsNot)
{
    QProcess status;
    const auto property = [&](const QString& name) {
        status.start(u"dbus-send"_s, {u"--session"_s, u"--print-reply=literal"_s, u"--dest=org.a11y.Bus"_s,
                                      u"/org/a11y/bus"_s, u"org.freedesktop.DBus.Properties.Get"_s,
                                      u"string:org.a11y.Status"_s, u"string:"_s + name});
        status.waitForFinished();
        return QString::fromUtf8(status.readAllStandardOutput()).simplified();
    };
    EXPECT_TRUE(property(u"IsEnabled"_s).endsWith(u"boolean true"_s));
    EXPECT_TRUE(property(u"ScreenReaderEnabled"_s).endsWith(u"boolean false"_s));
}

TEST_F(LinuxWorkspaceTest, directories_areThoseOfSettingsPanes)
{
    EXPECT_EQ(workspace
                  .searchPathForDirectoriesInDomains(Workspace::PreferencePanesDirectory,
                                                     Workspace::SystemDomainMask, true)
                  .size(),
              1);
    EXPECT_TRUE(workspace
                    .searchPathForDirectoriesInDomains(Workspace::PreferencePanesDirectory,
                                                       static_cast<Workspace::SearchPathDomainMask>(1), true)
                    .isEmpty());
}

TEST_F(LinuxWorkspaceTest, theServer_knowsAWindowsProcessBest)
{
    X11Connection& x11 = X11Connection::shared();
    const xcb_window_t window = makeWindow({});
    setNumber(x11, window, "_NET_WM_PID", 2); // as seen from inside a sandbox
    EXPECT_EQ(windows.processIdentifier(window), QCoreApplication::applicationPid());
    const QByteArray host = QSysInfo::machineHostName().toLocal8Bit();
    setText(x11, window, "WM_CLIENT_MACHINE", host);
    EXPECT_EQ(windows.processIdentifier(window), QCoreApplication::applicationPid());
    setText(x11, window, "WM_CLIENT_MACHINE", host + ".example.org");
    EXPECT_EQ(windows.processIdentifier(window), QCoreApplication::applicationPid());
    setText(x11, window, "WM_CLIENT_MACHINE", "elsewhere");
    EXPECT_EQ(windows.processIdentifier(window), std::nullopt) << "a number of another machine";
    destroy(window);
}

TEST_F(LinuxWorkspaceTest, whereTheServerDoesNotTell_theWindowDoes)
{
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-extension"_s, u"X-Resource"_s});
    ASSERT_TRUE(server.waitForReadyRead(Limit));
    const QByteArray display = ":" + server.readAllStandardOutput().trimmed();
    xcb_connection_t* connection = xcb_connect(display.constData(), nullptr);
    X11Connection x11(connection);
    const xcb_window_t window = makeWindow({}, false, x11);
    EXPECT_EQ(X11Windows(x11).processIdentifier(window), std::nullopt);
    setNumber(x11, window, "_NET_WM_PID", 4711);
    EXPECT_EQ(X11Windows(x11).processIdentifier(window), 4711);
    for (const quint32 none : {0U, 0x80000000U, 0xffffffffU}) {
        setNumber(x11, window, "_NET_WM_PID", none);
        EXPECT_EQ(X11Windows(x11).processIdentifier(window), std::nullopt) << none << " is no process";
    }
    xcb_disconnect(connection);
    server.kill();
    server.waitForFinished();
}

TEST_F(LinuxWorkspaceTest, nameThatIsEmpty_isNone)
{
    X11Connection& x11 = X11Connection::shared();
    const xcb_window_t window = makeWindow({});
    setText(x11, window, "_GTK_APPLICATION_ID", "");
    setText(x11, window, "WM_CLASS", QByteArray("\0Class\0", 7));
    EXPECT_EQ(windows.applicationNames(window), QList<QString>{u"Class"_s});
    destroy(window);
}

TEST_F(LinuxWorkspaceTest, windowsThatAreTransientInACircle_end)
{
    X11Connection& x11 = X11Connection::shared();
    const xcb_window_t one = makeWindow({});
    const xcb_window_t two = makeWindow({});
    EXPECT_EQ(windows.withOwners(one), QList<xcb_window_t>{one});
    setNumber(x11, one, "WM_TRANSIENT_FOR", two);
    setNumber(x11, two, "WM_TRANSIENT_FOR", one);
    EXPECT_EQ(windows.withOwners(one), (QList<xcb_window_t>{one, two}));
    setNumber(x11, two, "WM_TRANSIENT_FOR", x11.root());
    EXPECT_EQ(windows.withOwners(one), (QList<xcb_window_t>{one, two})) << "the root is no owner";
    destroy(one);
    destroy(two);
}

// The last: the window manager does not come back.
TEST_F(LinuxWorkspaceTest, zWithoutAWindowManager_theFocusTells)
{
    const FixtureProgram first(u"gtk3"_s);
    ASSERT_TRUE(waitUntilFront(first));
    const FixtureProgram second(u"qt6"_s);
    ASSERT_TRUE(waitUntilFront(second));
    const xcb_window_t firstWindow = windowOf(first, u"Fixture"_s);
    const xcb_window_t secondWindow = windowOf(second, u"Fixture"_s);
    ASSERT_TRUE(waitForSwitches(2));

    const auto managerWindow = [] {
        X11Connection& x11 = X11Connection::shared();
        return X11Property(x11, x11.root(), "_NET_SUPPORTING_WM_CHECK", 1).firstItem();
    };
    const xcb_window_t before = managerWindow();
    QProcess manager;
    manager.start(u"openbox"_s, {u"--sm-disable"_s, u"--replace"_s});
    ASSERT_TRUE(manager.waitForStarted());
    ASSERT_TRUE(QTest::qWaitFor([&] { return managerWindow() != before && windows.managed(); }, Limit))
        << "replaced";
    ASSERT_TRUE(bringToFront(firstWindow, first)) << "the new one is followed";
    ASSERT_TRUE(bringToFront(secondWindow, second));
    manager.kill();
    manager.waitForFinished();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !windows.managed(); }, Limit));
    QTest::qWait(100);
    switches.clear();
    focus(firstWindow);
    ASSERT_TRUE(waitUntilFront(first));
    EXPECT_TRUE(waitForSwitches(1));
    focus(secondWindow);
    ASSERT_TRUE(waitUntilFront(second));
    EXPECT_TRUE(waitForSwitches(2));
    EXPECT_EQ(switches, (QList<qint64>{first.processIdentifier(), second.processIdentifier()}));
}
