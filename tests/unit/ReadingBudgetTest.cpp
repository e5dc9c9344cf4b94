// SPDX-License-Identifier: MIT
#include "platform/linux/ReadingBudget.h"

#include "platform/qt/MenuTracking.h"
#include "tests/fakes/FakeClock.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <thread>

using namespace tarnwick;
using namespace std::chrono_literals;

namespace {

std::chrono::milliseconds left(ReadingBudget& budget)
{
    const ReadingBudget::Reading reading(budget);
    return std::chrono::round<std::chrono::milliseconds>(reading.deadline().remaining());
}

} // namespace

TEST(Deadline, passed_goesByTheProgramsClock)
{
    FakeClock clock;
    Clock::setShared(&clock);
    const Deadline deadline = Deadline::in(500ms);
    clock.advance(0.25);
    EXPECT_FALSE(deadline.passed());
    EXPECT_EQ(deadline.remaining(), 250ms);
    EXPECT_EQ(deadline.atMostIn(100ms).remaining(), 100ms);
    clock.advance(0.25);
    EXPECT_TRUE(deadline.passed());
    EXPECT_EQ(deadline.remainingMilliseconds(), 0);
    Clock::setShared(nullptr);
    EXPECT_EQ(Clock::sharedOrNull(), nullptr);
    EXPECT_FALSE(Deadline::in(1min).passed()) << "the system's clock";
}

TEST(ReadingBudget, readsOfOneEvent_shareHalfASecond)
{
    ReadingBudget budget;
    EXPECT_GE(left(budget).count(), 450);
    EXPECT_LE(left(budget).count(), 500);
    {
        const ReadingBudget::Reading reading(budget);
        std::this_thread::sleep_for(60ms);
    }
    EXPECT_LE(left(budget).count(), 440);
}

TEST(ReadingBudget, timeBetweenReads_doesNotCount)
{
    ReadingBudget budget;
    const auto before = left(budget);
    std::this_thread::sleep_for(60ms);
    EXPECT_GE(left(budget).count(), before.count() - 30);
}

TEST(ReadingBudget, aReadWithinARead_countsOnce)
{
    ReadingBudget budget;
    {
        const ReadingBudget::Reading outer(budget);
        for (int i = 0; i < 3; ++i) {
            std::this_thread::sleep_for(20ms);
            const ReadingBudget::Reading inner(budget);
            EXPECT_LE(inner.deadline().remaining(), outer.deadline().remaining()) << "it has no more time";
        }
    }
    EXPECT_LE(left(budget).count(), 440);
    EXPECT_GE(left(budget).count(), 300);
}

TEST(ReadingBudget, whenItIsUsedUp_nothingIsLeftUntilTheEventLoopComesRound)
{
    ReadingBudget budget;
    {
        const ReadingBudget::Reading reading(budget);
        std::this_thread::sleep_for(ReadingBudget::PerEvent + 10ms);
    }
    EXPECT_EQ(left(budget).count(), 0);
    EXPECT_EQ(left(budget).count(), 0);
    QCoreApplication::processEvents();
    EXPECT_GE(left(budget).count(), 450);
}

TEST(ReadingBudget, whenItIsUsedUpWhileAMenuIsOpen_whatWasPressedMeanwhileFindsNothingLeft)
{
    ReadingBudget budget;
    MenuTracking::shared().begin();
    static_cast<void>(left(budget)); // queues a renewal, which must not help
    {
        const ReadingBudget::Reading reading(budget);
        std::this_thread::sleep_for(ReadingBudget::PerEvent + 10ms);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(left(budget).count(), 0) << "a key from the queue";
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(40ms);
    QCoreApplication::processEvents();
    EXPECT_GE(left(budget).count(), 450) << "a key that was pressed later";
    MenuTracking::shared().end();
}

TEST(ReadingBudget, whenItIsUsedUpWhileAMenuIsOpen_theTimeThatTheHandlersTakeIsNotTheEndOfTheQueue)
{
    ReadingBudget budget;
    MenuTracking::shared().begin();
    {
        const ReadingBudget::Reading reading(budget);
        std::this_thread::sleep_for(ReadingBudget::PerEvent + 10ms);
    }
    for (int key = 0; key < 3; ++key) {
        std::this_thread::sleep_for(40ms); // a menu is laid out and shown
        QCoreApplication::processEvents();
        EXPECT_EQ(left(budget).count(), 0) << "the next key from the queue";
    }
    MenuTracking::shared().end();
}

TEST(ReadingBudget, whenItIsUsedUpWhileAMenuIsOpen_theEndOfTheMenuRenewsIt)
{
    ReadingBudget budget;
    MenuTracking::shared().begin();
    {
        const ReadingBudget::Reading reading(budget);
        std::this_thread::sleep_for(ReadingBudget::PerEvent + 10ms);
    }
    MenuTracking::shared().end();
    EXPECT_GE(left(budget).count(), 450);
}
