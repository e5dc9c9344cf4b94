// SPDX-License-Identifier: MIT
#include "shortcut/RecorderTransition.h"

#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

#include <optional>

using namespace tarnwick;

namespace {

constexpr double Tick = 0.0334;

class RecorderTransitionTest : public ::testing::Test
{
protected:
    FakeClock clock;
    SharedPorts sharedPorts{clock};
    int moves = 0;
    QList<bool> arrivals; ///< "towards recording" of each
    std::optional<RecorderTransition> transition{std::in_place, [this] { ++moves; },
                                                 [this](bool towardsRecording) {
                                                     EXPECT_FALSE(transition->isAnimatingNow());
                                                     EXPECT_EQ(transition->progress(), 0);
                                                     arrivals.append(towardsRecording);
                                                 }};
};

} // namespace

TEST_F(RecorderTransitionTest, beforeTheFirst_nothingMoves_andTheLookIsThatOfTheState)
{
    clock.advance(1);
    EXPECT_EQ(moves, 0);
    EXPECT_FALSE(transition->isAnimatingNow());
    EXPECT_EQ(transition->progress(), 0);
    EXPECT_EQ(transition->shareOfRecordingLook(false), 0);
    EXPECT_EQ(transition->shareOfRecordingLook(true), 1);
}

TEST_F(RecorderTransitionTest, eleventhTick_arrives_andTheTenBeforeItMove)
{
    for (const bool towardsRecording : {true, false}) {
        moves = 0;
        arrivals.clear();
        transition->start(towardsRecording);
        for (int tick = 1; tick <= 10; ++tick) {
            clock.advance(Tick);
            EXPECT_EQ(moves, tick);
            EXPECT_NEAR(transition->progress(), tick * 2.0 / 21.0, 1e-6);
            EXPECT_TRUE(transition->isAnimatingNow());
        }
        EXPECT_TRUE(arrivals.isEmpty());
        clock.advance(Tick);
        EXPECT_EQ(moves, 10) << "the last tick is the arrival";
        EXPECT_EQ(arrivals, QList<bool>{towardsRecording});
        EXPECT_EQ(transition->isAnimatingTowardsRecording(), towardsRecording);
        clock.advance(1);
        EXPECT_EQ(arrivals.size(), 1);
        EXPECT_EQ(clock.pending(), 0);
    }
}

TEST_F(RecorderTransitionTest, ticksAreAThirtiethOfASecondApart)
{
    transition->start(true);
    clock.advance(0.0333);
    EXPECT_EQ(moves, 0);
    clock.advance(0.0001);
    EXPECT_EQ(moves, 1);
}

TEST_F(RecorderTransitionTest, look_easesTowardsRecordingOrAway_whateverTheState)
{
    for (const bool isRecording : {true, false}) {
        transition->start(true);
        clock.advance(Tick);
        EXPECT_NEAR(transition->shareOfRecordingLook(isRecording), 0.0222, 1e-4);
        transition->start(false);
        clock.advance(Tick);
        EXPECT_NEAR(transition->shareOfRecordingLook(isRecording), 1 - 0.0222, 1e-4);
    }
}

TEST_F(RecorderTransitionTest, startingAgain_beginsAnew_andOnlyTheNewOneArrives)
{
    transition->start(true);
    for (int tick = 0; tick < 5; ++tick)
        clock.advance(Tick);
    transition->start(false);
    EXPECT_EQ(transition->progress(), 0);
    EXPECT_EQ(clock.pending(), 1);
    for (int tick = 0; tick < 10; ++tick)
        clock.advance(Tick);
    EXPECT_TRUE(arrivals.isEmpty());
    clock.advance(Tick);
    EXPECT_EQ(arrivals, QList<bool>{false});
}

TEST_F(RecorderTransitionTest, destroyed_ticksNoMore)
{
    transition->start(true);
    clock.advance(Tick);
    transition.reset();
    EXPECT_EQ(clock.pending(), 0);
    clock.advance(1);
    EXPECT_EQ(moves, 1);
    EXPECT_TRUE(arrivals.isEmpty());
}
