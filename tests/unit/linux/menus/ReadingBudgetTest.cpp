// SPDX-License-Identifier: MIT
#include "platform/linux/menus/ReadingBudget.h"

#include "platform/qt/menu/MenuTracking.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <thread>

using namespace tarnwick;
using namespace std::chrono_literals;

namespace {

/// Time passes when the test lets it: a busy machine takes none away.
class ReadingBudgetTest : public ::testing::Test
{
protected:
    std::chrono::milliseconds left()
    {
        const ReadingBudget::Reading reading(budget);
        return std::chrono::round<std::chrono::milliseconds>(reading.deadline().remaining());
    }
    void pass(std::chrono::milliseconds time) { clock.advance(std::chrono::duration<double>(time).count()); }
    void useUp()
    {
        const ReadingBudget::Reading reading(budget);
        pass(ReadingBudget::PerReading + 10ms);
    }

    FakeClock clock;
    SharedPorts sharedPorts{clock};
    ReadingBudget budget;
};

/// With a menu open, whose keyboard and pointer are ours.
class ReadingBudgetOverAMenu : public ReadingBudgetTest
{
protected:
    ReadingBudgetOverAMenu() { MenuTracking::shared().begin(); }
    ~ReadingBudgetOverAMenu() override { MenuTracking::shared().end(); }
};

} // namespace

TEST(Deadline, passed_goesByTheProgramsClock)
{
    {
        FakeClock clock;
        const SharedPorts withClock(clock);
        const Deadline deadline = Deadline::in(500ms);
        clock.advance(0.25);
        EXPECT_FALSE(deadline.passed());
        EXPECT_EQ(deadline.remaining(), 250ms);
        EXPECT_EQ(deadline.atMostIn(100ms).remaining(), 100ms);
        clock.advance(0.25);
        EXPECT_TRUE(deadline.passed());
        EXPECT_EQ(deadline.remainingMilliseconds(), 0);
    }
    EXPECT_EQ(Clock::sharedOrNull(), nullptr);
    EXPECT_FALSE(Deadline::in(1min).passed()) << "the system's clock";
}

TEST_F(ReadingBudgetTest, readsOfOneReading_shareHalfASecond)
{
    EXPECT_EQ(left(), 500ms);
    {
        const ReadingBudget::Reading reading(budget);
        pass(60ms);
    }
    EXPECT_EQ(left(), 440ms);
}

TEST_F(ReadingBudgetTest, timeBetweenReads_doesNotCount)
{
    EXPECT_EQ(left(), 500ms);
    pass(60ms);
    EXPECT_EQ(left(), 500ms);
}

TEST_F(ReadingBudgetTest, aReadWithinARead_countsOnce)
{
    {
        const ReadingBudget::Reading outer(budget);
        for (int i = 0; i < 3; ++i) {
            pass(20ms);
            const ReadingBudget::Reading inner(budget);
            EXPECT_EQ(inner.deadline().remaining(), outer.deadline().remaining()) << "it has no more time";
        }
    }
    EXPECT_EQ(left(), 440ms);
}

TEST_F(ReadingBudgetTest, whenItIsUsedUp_nothingIsLeftUntilTheEventLoopComesRound)
{
    useUp();
    EXPECT_EQ(left(), 0ms);
    EXPECT_EQ(left(), 0ms);
    QCoreApplication::processEvents();
    EXPECT_EQ(left(), 500ms);
}

TEST_F(ReadingBudgetTest, aReadingThatBegins_hasTheWholeTime)
{
    useUp();
    budget.begin();
    EXPECT_EQ(left(), 500ms);
    useUp();
    EXPECT_EQ(left(), 0ms) << "and no more";
    budget.begin();
    EXPECT_EQ(left(), 500ms);
}

TEST_F(ReadingBudgetOverAMenu, whenItIsUsedUp_whatWasPressedMeanwhileFindsNothingLeft)
{
    static_cast<void>(left()); // queues a renewal, which must not help
    useUp();
    QCoreApplication::processEvents();
    EXPECT_EQ(left(), 0ms) << "a key from the queue";
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(40ms);
    QCoreApplication::processEvents();
    EXPECT_EQ(left(), 500ms) << "a key that was pressed later";
}

TEST_F(ReadingBudgetOverAMenu, whenItIsUsedUp_theTimeThatTheHandlersTakeIsNotTheEndOfTheQueue)
{
    useUp();
    for (int key = 0; key < 3; ++key) {
        std::this_thread::sleep_for(40ms); // a menu is laid out and shown
        QCoreApplication::processEvents();
        EXPECT_EQ(left(), 0ms) << "the next key from the queue";
    }
}

TEST_F(ReadingBudgetOverAMenu, whenItIsUsedUp_theEndOfTheMenuRenewsIt)
{
    useUp();
    MenuTracking::shared().end();
    EXPECT_EQ(left(), 500ms);
}
