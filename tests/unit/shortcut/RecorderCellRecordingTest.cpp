// SPDX-License-Identifier: MIT
// When a recorder's cell records: the transitions, the system's shortcuts and the first responder.
#include "tests/unit/shortcut/RecorderCellFixture.h"

using namespace tarnwick;
using namespace tarnwick::recorder;
using namespace Qt::StringLiterals;

// Recording and its transitions

TEST_F(SRRecorderCellTest, startOfRecording_showsTheRequiredModifiers_andRedraws)
{
    cell.setRequiredFlags(Command | CapsLock);
    cell.flagsChanged(flagsEvent(Option));
    view.displays = 0;
    view.focusRings = 0;
    cell.performKeyEquivalent(space());
    EXPECT_TRUE(cell.isRecording());
    EXPECT_EQ(cell.recordingFlags(), Command);
    EXPECT_GE(view.displays, 1);
    EXPECT_EQ(view.focusRings, 1);
    cell.performKeyEquivalent(escape());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(view.focusRings, 2);
}

TEST_F(SRRecorderCellTest, animation_isEffectiveInStyleOneOnly)
{
    struct Row
    {
        bool animates;
        qint32 style;
        bool effective;
    };
    for (const Row& row :
         {Row{false, 0, false}, Row{false, 1, false}, Row{true, 0, false}, Row{true, 1, true}}) {
        SRRecorderCell each;
        each.setAnimates(row.animates);
        each.setStyle(row.style);
        each.performKeyEquivalent(space());
        EXPECT_EQ(each.isAnimatingNow(), row.effective) << row.animates << row.style;
        EXPECT_EQ(each.isRecording(), !row.effective) << row.animates << row.style;
    }
}

TEST_F(SRRecorderCellTest, transition_takesElevenTicksOfAThirtiethOfASecond)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.performKeyEquivalent(space());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_TRUE(cell.isAnimatingTowardsRecording());
    EXPECT_EQ(cell.transitionProgress(), 0);
    clock.advance(0.0333);
    EXPECT_EQ(cell.transitionProgress(), 0) << "not before a thirtieth";
    clock.advance(0.0001);
    for (int tick = 1; tick <= 10; ++tick) {
        EXPECT_DOUBLE_EQ(cell.transitionProgress(), tick * double(2.0F / 21.0F)) << tick;
        EXPECT_EQ(clock.pending(), 1);
        EXPECT_FALSE(cell.isRecording());
        view.displays = 0;
        clock.advance(double(1.0F / 30.0F));
        EXPECT_GE(view.displays, 1);
    }
    EXPECT_TRUE(cell.isRecording()) << "with the eleventh tick";
    EXPECT_FALSE(cell.isAnimatingNow());
    EXPECT_EQ(cell.transitionProgress(), 0);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(SRRecorderCellTest, endTransition_recordsAtOnce_andStaysRecordingToItsEnd)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    startRecording();
    cell.performKeyEquivalent(letterA(Command));
    EXPECT_EQ(cell.keyCombo(), (KeyCombo{Command, 0}));
    EXPECT_TRUE(cell.comboJustChanged());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isAnimatingTowardsRecording());
    EXPECT_TRUE(cell.isRecording());
    clock.advance(11 * Tick);
    EXPECT_FALSE(cell.isRecording());
    EXPECT_FALSE(cell.comboJustChanged());
    EXPECT_FALSE(cell.isAnimatingNow());
}

TEST_F(SRRecorderCellTest, newTransition_takesThePlaceOfTheRunningOne)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.performKeyEquivalent(space());
    clock.advance(5 * Tick);
    cell.performKeyEquivalent(space());
    EXPECT_EQ(cell.transitionProgress(), 0);
    EXPECT_EQ(clock.pending(), 1);
    clock.advance(10 * Tick);
    EXPECT_FALSE(cell.isRecording());
    clock.advance(Tick);
    EXPECT_TRUE(cell.isRecording());
}

TEST_F(SRRecorderCellTest, destroyedCell_ticksNoMore)
{
    {
        SRRecorderCell gone;
        gone.setAnimates(true);
        gone.setStyle(1);
        gone.performKeyEquivalent(space());
        EXPECT_EQ(clock.pending(), 1);
    }
    EXPECT_EQ(clock.pending(), 0);
    clock.advance(1);
}

// The system's shortcuts

TEST_F(SRRecorderCellTest, everyStartPushesOnce_everyEndPopsOnce)
{
    cell.setCanCaptureGlobalHotKeys(true);
    for (int round = 1; round <= 3; ++round) {
        startRecording();
        EXPECT_EQ(symbolicHotKeys.pushes, round);
        EXPECT_EQ(symbolicHotKeys.pops, round - 1);
        cell.performKeyEquivalent(round == 2 ? letterA(Command) : escape());
        EXPECT_EQ(symbolicHotKeys.pushes, round);
        EXPECT_EQ(symbolicHotKeys.pops, round);
    }
    EXPECT_EQ(symbolicHotKeys.pushOptions, (QList<quint32>{1, 1, 1}));
}

TEST_F(SRRecorderCellTest, withoutTheSetting_nothingIsPushed)
{
    startRecording();
    cell.performKeyEquivalent(escape());
    EXPECT_EQ(symbolicHotKeys.pushes, 0);
    EXPECT_FALSE(journal.contains(u"pop"_s));
}

TEST_F(SRRecorderCellTest, noWayOutLeavesThemSwitchedOff)
{
    const QList<std::pair<const char*, std::function<void(SRRecorderCell&)>>> ways{
        {"a recorded key", [](SRRecorderCell& each) { each.performKeyEquivalent(letterA(Command)); }},
        {"cancelling", [](SRRecorderCell& each) { each.performKeyEquivalent(escape()); }},
        {"a beep", [](SRRecorderCell& each) { each.performKeyEquivalent(key(54, Command, {})); }},
        {"loss of the focus", [](SRRecorderCell& each) { EXPECT_TRUE(each.resignFirstResponder()); }},
        {"the setting going off meanwhile",
         [](SRRecorderCell& each) {
             each.setCanCaptureGlobalHotKeys(false);
             each.performKeyEquivalent(escape());
         }},
        {"starting again while recording",
         [](SRRecorderCell& each) {
             each.performKeyEquivalent(space());
             EXPECT_TRUE(each.isRecording());
             each.performKeyEquivalent(escape());
         }},
        {"destruction", [](SRRecorderCell&) {}},
    };
    view.firstResponder = true;
    for (const auto& [name, way] : ways) {
        SCOPED_TRACE(name);
        {
            SRRecorderCell each;
            each.setControlView(&view);
            each.setCanCaptureGlobalHotKeys(true);
            startRecording(each);
            EXPECT_EQ(symbolicHotKeys.pushed.size(), 1);
            way(each);
        }
        EXPECT_TRUE(symbolicHotKeys.pushed.isEmpty());
        EXPECT_EQ(symbolicHotKeys.pushes, symbolicHotKeys.pops);
    }
}

TEST_F(SRRecorderCellTest, refusedPush_isNotPopped)
{
    symbolicHotKeys.refusesPush = true;
    cell.setCanCaptureGlobalHotKeys(true);
    startRecording();
    cell.performKeyEquivalent(escape());
    EXPECT_FALSE(journal.contains(u"pop"_s));
}

// The first responder

TEST_F(SRRecorderCellTest, becomingFirstResponder_tracksAndRedraws)
{
    view.displays = 0;
    EXPECT_TRUE(cell.becomeFirstResponder());
    EXPECT_EQ(view.tracked.size(), 1);
    EXPECT_GE(view.displays, 1);
}

TEST_F(SRRecorderCellTest, resigningFirstResponder_endsRecording)
{
    view.displays = 0;
    EXPECT_TRUE(cell.resignFirstResponder()) << "while idle as well";
    EXPECT_GE(view.displays, 1);
    startRecording();
    EXPECT_TRUE(cell.resignFirstResponder());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(cell.keyCombo().code, -1);

    cell.setAnimates(true);
    cell.setStyle(1);
    startRecording();
    EXPECT_TRUE(cell.resignFirstResponder());
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isAnimatingTowardsRecording());
}

TEST_F(SRRecorderCellTest, resigningOnTheWayToRecording_turnsBack)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.setCanCaptureGlobalHotKeys(true);
    cell.performKeyEquivalent(space());
    clock.advance(3 * Tick);
    EXPECT_TRUE(cell.resignFirstResponder());
    clock.advance(1);
    EXPECT_FALSE(cell.isRecording());
    EXPECT_FALSE(cell.isAnimatingNow());
    EXPECT_EQ(symbolicHotKeys.pushes, 0);
}
