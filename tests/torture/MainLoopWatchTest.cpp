// SPDX-License-Identifier: MIT
#include "tests/torture/MainLoopWatch.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace tarnwick {

namespace {

class MainLoopWatchTest : public testing::Test
{
protected:
    static void runLoop(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QList<QByteArray> lines() const
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QList<QByteArray> found = file.readAll().split('\n');
        found.removeAll({});
        return found;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(u"away"_s);
    MainLoopWatch watch{path};
};

} // namespace

TEST_F(MainLoopWatchTest, tellsWhenTheLoopWasAwayAndHowLong)
{
    runLoop(20ms);
    QElapsedTimer away;
    away.start();
    std::this_thread::sleep_for(600ms); // so that the watch asks early in it, also on a busy machine
    for (int i = 0; i < 100 && lines().isEmpty(); ++i)
        runLoop(50ms);
    const double atMost = static_cast<double>(away.elapsed()) / 1000;

    double longest = 0;
    for (const QByteArray& line : lines()) {
        const QList<QByteArray> numbers = line.split(' ');
        ASSERT_EQ(numbers.size(), 5);
        longest = qMax(longest, numbers[1].toDouble() - numbers[0].toDouble());
        EXPECT_EQ(numbers[2].toDouble(), 0.0);
        EXPECT_LE(numbers[3].toDouble(), atMost);
        EXPECT_EQ(numbers[4].toInt(), 0);
    }
    EXPECT_GE(longest, 0.1);
    EXPECT_LE(longest, atMost);
}

TEST_F(MainLoopWatchTest, tellsHowMuchOfItWasAPause)
{
    runLoop(20ms);
    std::this_thread::sleep_for(120ms);
    watch.addPause(0.1);
    for (int i = 0; i < 100 && lines().isEmpty(); ++i)
        runLoop(50ms);

    double paused = 0;
    int pauses = 0;
    for (const QByteArray& line : lines()) {
        paused += line.split(' ').value(2).toDouble();
        pauses += line.split(' ').value(4).toInt();
    }
    EXPECT_NEAR(paused, 0.1, 0.001);
    EXPECT_EQ(pauses, 1);
}

} // namespace tarnwick
