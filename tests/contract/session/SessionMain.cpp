// SPDX-License-Identifier: MIT
// The main function of tests that need a desktop. Started first, it makes a private session and starts itself
// again inside it.
#include "platform/linux/input/X11Focus.h"
#include "platform/linux/session/QtArguments.h"
#include "tests/RunTests.h"
#include "tests/contract/session/DesktopControl.h"
#include "tests/contract/session/PrivateSession.h"

#include <QApplication>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* InsideVariable = "TARNWICK_TEST_SESSION";
constexpr int Skipped = 77;

/// A window manager that is still starting gives nobody the focus: the first window that gets it tells that
/// it has begun.
bool windowManagerHasBegun()
{
    using namespace tarnwick;
    constexpr int limit = 60'000; // ms
    const xcb_window_t window = desktop_control::makeWindow({});
    const bool begun = QTest::qWaitFor(
        [window] {
            desktop_control::activate(window);
            return focusWindow(X11Connection::shared()) == window;
        },
        limit);
    desktop_control::destroy(window);
    return begun;
}

int runInside(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    tarnwick::QtArguments arguments(argc, argv); // as the program runs: without the toolkit's own grabs
    const QApplication application(arguments.argc(), arguments.argv());
    if (!windowManagerHasBegun()) {
        std::fputs("The window manager of the private session does not begin.\n", stderr);
        return EXIT_FAILURE;
    }
    return tarnwick::runTests();
}

int runAround(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    tarnwick::PrivateSession session;
    const QString missing = session.start();
    if (!missing.isEmpty()) {
        std::fprintf(stderr, "A private session needs %s.\n", qPrintable(missing));
        return qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS") ? EXIT_FAILURE : Skipped;
    }
    QProcessEnvironment environment = session.environment();
    environment.insert(QLatin1StringView(InsideVariable), u"1"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    QProcess test;
    test.setProcessEnvironment(environment);
    test.setProcessChannelMode(QProcess::ForwardedChannels);
    test.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    test.waitForFinished(-1);
    return test.exitStatus() == QProcess::NormalExit ? test.exitCode() : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    return qEnvironmentVariableIsSet(InsideVariable) ? runInside(argc, argv) : runAround(argc, argv);
}
