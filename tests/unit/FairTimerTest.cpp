// SPDX-License-Identifier: MIT
#include "tests/FairTimer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <sched.h>
#include <sstream>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

std::string printed(const FairTime& time)
{
    std::ostringstream out;
    out << time;
    return out.str();
}

/// While it lives, this thread and `others` that never rest have one processor among them.
class CrowdedProcessor
{
public:
    explicit CrowdedProcessor(int others)
    {
        sched_getaffinity(0, sizeof(_before), &_before);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(_first(), &one);
        sched_setaffinity(0, sizeof(one), &one);
        for (int i = 0; i < others; ++i)
            _others.emplace_back([this] {
                while (!_ended)
                    ;
            });
    }
    ~CrowdedProcessor()
    {
        _ended = true;
        for (std::thread& other : _others)
            other.join();
        sched_setaffinity(0, sizeof(_before), &_before);
    }
    CrowdedProcessor(const CrowdedProcessor&) = delete;
    CrowdedProcessor& operator=(const CrowdedProcessor&) = delete;
    CrowdedProcessor(CrowdedProcessor&&) = delete;
    CrowdedProcessor& operator=(CrowdedProcessor&&) = delete;

private:
    [[nodiscard]] int _first() const
    {
        int cpu = 0;
        while (cpu < CPU_SETSIZE - 1 && !CPU_ISSET(cpu, &_before))
            ++cpu;
        return cpu;
    }

    cpu_set_t _before{};
    std::atomic<bool> _ended = false;
    std::vector<std::thread> _others;
};

FairTime workFor(int milliseconds)
{
    FairTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        ;
    return timer.fairElapsed();
}

} // namespace

TEST(FairTime, isWithinALimit_asItWas_howeverBusyTheMachine)
{
    EXPECT_TRUE(FairTime(100, 0) <= 100);
    EXPECT_TRUE(FairTime(100, 100) <= 100);
    EXPECT_FALSE(FairTime(101, 0) <= 100);
    EXPECT_FALSE(FairTime(100, 0) < 100);
    EXPECT_TRUE(FairTime(100, 0) < 101);
}

TEST(FairTime, isWithinALimit_withoutWhatOthersHad)
{
    EXPECT_TRUE(FairTime(160, 60) <= 100);
    EXPECT_FALSE(FairTime(161, 60) <= 100);
    EXPECT_FALSE(FairTime(160, 60) < 100);
}

TEST(FairTime, isNeverBelowZero_whateverTheKernelCounts)
{
    EXPECT_FALSE(FairTime(300, 5000) < 1);
    EXPECT_FALSE(FairTime(300, 5000) <= -1);
    EXPECT_EQ(FairTime(300, 5000).starved(), 300);
    EXPECT_FALSE(FairTime(300, -5000) <= 299);
    EXPECT_EQ(FairTime(300, -5000).starved(), 0);
}

TEST(FairTime, fails_whenOthersHadMoreThanAShare_andSaysSo)
{
    EXPECT_TRUE(FairTime(200, 100) <= 100) << "half";
    EXPECT_FALSE(FairTime(202, 102) <= 100) << "more than half";
    EXPECT_EQ(printed(FairTime(202, 102)),
              "202 ms, 102 of them without a processor: the machine was too busy");
    EXPECT_EQ(printed(FairTime(202, 101)), "202 ms, 101 of them without a processor");
}

TEST(FairTimer, countsSleep)
{
    FairTimer timer;
    timer.start();
    std::this_thread::sleep_for(100ms);
    EXPECT_FALSE(timer.fairElapsed() < 99);
}

TEST(FairTimer, knowsWhatOthersHad)
{
    const CrowdedProcessor crowded(1);
    const FairTime time = workFor(300);
    EXPECT_GT(time.starved(), 50);
    EXPECT_LT(time.starved(), 300);
}

TEST(FairTimer, onAMachineThatIsTooBusy_passesNoLimitThatWasMissed)
{
    const CrowdedProcessor crowded(5);
    const FairTime time = workFor(400);
    EXPECT_TRUE(time.machineWasTooBusy()) << time;
    EXPECT_FALSE(time <= 399);
    EXPECT_TRUE(time <= 10000);
}

} // namespace tarnwick
