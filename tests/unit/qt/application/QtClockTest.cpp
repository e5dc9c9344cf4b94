// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtClock.h"

#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

TEST(QtClock, sleep_blocksForTheInterval)
{
    QtClock clock;
    const double before = clock.now();
    clock.sleepForTimeInterval(0.05);
    EXPECT_GE(clock.now() - before, 0.05);
    clock.sleepForTimeInterval(-1);
    clock.sleepForTimeInterval(0);
    EXPECT_LT(clock.now() - before, 5);
}

TEST(QtClock, delayedCall_runsOnceFromTheEventLoop)
{
    QtClock clock;
    int calls = 0;
    const auto timer = clock.performAfterDelay(0, [&] { ++calls; });
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls > 0; }));
    QTest::qWait(20);
    EXPECT_EQ(calls, 1);
}

TEST(QtClock, destroyedTimer_doesNotCall)
{
    QtClock clock;
    bool called = false;
    bool last = false;
    auto timer = clock.performAfterDelay(0.001, [&] { called = true; });
    const auto later = clock.performAfterDelay(0.02, [&] { last = true; });
    timer.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return last; }));
    EXPECT_FALSE(called);
}

TEST(QtClock, callThatDestroysItsTimer_runsToItsEnd)
{
    QtClock clock;
    QString text;
    std::unique_ptr<Clock::Timer> timer;
    const QString kept(1000, QLatin1Char('x'));
    timer = clock.performAfterDelay(0, [&timer, &text, kept] {
        timer.reset();
        text = kept;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return text == kept; }));
}

} // namespace
