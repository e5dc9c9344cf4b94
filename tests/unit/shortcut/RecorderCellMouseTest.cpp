// SPDX-License-Identifier: MIT
// The mouse over a recorder's cell and its buttons.
#include "tests/unit/shortcut/RecorderCellFixture.h"

using namespace tarnwick;
using namespace tarnwick::recorder;
using namespace Qt::StringLiterals;

TEST_F(SRRecorderCellTest, buttonRectangles_standAtTheRightEdge)
{
    const QRectF frame(0, 0, 200, 22);
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF()) << "nothing to remove";
    cell.setKeyCombo({Command, 6});
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF(182, 4, 14, 14));
    EXPECT_EQ(cell.snapbackRectForFrame(frame), QRectF(184, 5, 14, 14));
    const QRectF elsewhere(10, 20, 100, 22);
    EXPECT_EQ(cell.removeButtonRectForFrame(elsewhere), QRectF(92, 14, 14, 14)) << "half of the frame's y";
    EXPECT_EQ(cell.snapbackRectForFrame(elsewhere), QRectF(94, 15, 14, 14));
    cell.setEnabled(false);
    EXPECT_EQ(cell.removeButtonRectForFrame(frame), QRectF());
}

TEST_F(SRRecorderCellTest, clicks_byStateAndPlace)
{
    struct Row
    {
        const char* name;
        KeyCombo before;
        bool recording;
        bool enabled;
        QList<QPointF> points;
        KeyCombo after;
        bool recordingAfter;
        bool firstResponder;
    };
    const KeyCombo set{Command, 6};
    const KeyCombo none{0, -1};
    const QList<Row> rows{
        {"idle, main area: recording starts", set, false, true, {InMainArea, InMainArea}, set, true, true},
        {"idle, remove button: cleared",
         set,
         false,
         true,
         {InRemoveButton, InRemoveButton},
         none,
         false,
         true},
        {"idle, dragged from the button to the main area: recording starts",
         set,
         false,
         true,
         {InRemoveButton, InMainArea, InMainArea},
         set,
         true,
         true},
        {"idle, dragged from the main area to the button: cleared",
         set,
         false,
         true,
         {InMainArea, InRemoveButton, InRemoveButton},
         none,
         false,
         true},
        {"idle, released outside: nothing",
         set,
         false,
         true,
         {InMainArea, {50, 40}, {50, 40}},
         set,
         false,
         true},
        {"idle, beside the button: nothing", set, false, true, {{181, 11}, {181.9, 11}}, set, true, true},
        {"idle, between main area and button's end",
         set,
         false,
         true,
         {{197, 11}, {197, 11}},
         set,
         false,
         true},
        {"empty, where the button would be: recording starts",
         none,
         false,
         true,
         {InRemoveButton, InRemoveButton},
         none,
         true,
         true},
        {"disabled: nothing", set, false, false, {InMainArea, InMainArea}, set, false, false},
        {"disabled, on the button: nothing",
         set,
         false,
         false,
         {InRemoveButton, InRemoveButton},
         set,
         false,
         false},
        {"recording, snap back: ends with the old one",
         set,
         true,
         true,
         {InSnapback, InSnapback},
         set,
         false,
         true},
        {"recording, main area: goes on", set, true, true, {InMainArea, InMainArea}, set, true, true},
        {"recording, dragged off snap back: goes on",
         set,
         true,
         true,
         {InSnapback, InMainArea, InMainArea},
         set,
         true,
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        cell.setEnabled(true);
        if (cell.isRecording())
            cell.performKeyEquivalent(escape());
        cell.setKeyCombo(row.before);
        if (row.recording)
            startRecording();
        cell.setEnabled(row.enabled);
        view.firstResponder = false;
        listener.combos.clear();
        EXPECT_TRUE(click(row.points));
        EXPECT_EQ(cell.keyCombo(), row.after);
        EXPECT_EQ(cell.isRecording(), row.recordingAfter);
        EXPECT_EQ(view.firstResponder, row.firstResponder);
        EXPECT_FALSE(cell.mouseDown());
        EXPECT_EQ(listener.combos.size(), row.before == row.after ? 0 : 1);
    }
}

TEST_F(SRRecorderCellTest, mainArea_endsBeforeTheButton)
{
    cell.setKeyCombo({Command, 6});
    click({{182 - 0.5, 11}, {182 - 0.5, 11}});
    EXPECT_TRUE(cell.isRecording()) << "200 - (4 + 14) is 182";
    cell.performKeyEquivalent(escape());
    cell.setKeyCombo({Command, 6});
    click({{182, 3}, {182, 3}});
    EXPECT_FALSE(cell.isRecording());
    EXPECT_EQ(cell.keyCombo().code, 6) << "below the button, beside the main area";
}

TEST_F(SRRecorderCellTest, removeButton_clears_tells_saves)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Command, 6});
    listener.combos.clear();
    click({InRemoveButton, InRemoveButton});
    EXPECT_EQ(listener.combos, (QList<KeyCombo>{{0, -1}}));
    EXPECT_EQ(saved()[u"keyCode"_s].toInt(), -1);
    EXPECT_TRUE(cell.isEmpty());
}

TEST_F(SRRecorderCellTest, tracking_followsTheMouseTickByTick)
{
    cell.setKeyCombo({Command, 6});
    QList<std::pair<bool, bool>> seen; // mouse down, inside
    const auto mouse = [this](Event::Type type, const QPointF& point) {
        Event event;
        event.type = type;
        event.locationInWindow = view.inWindow(point);
        return event;
    };
    events.events = {mouse(Event::Type::LeftMouseDragged, InMainArea),
                     mouse(Event::Type::LeftMouseDragged, InRemoveButton),
                     mouse(Event::Type::LeftMouseUp, InMainArea)};
    events.arrives = [&](const Event&) {
        seen.append({cell.mouseDown(), cell.mouseInsideTrackingArea()});
        EXPECT_GE(view.displays, 1) << "redrawn after each event";
        view.displays = 0;
    };
    cell.trackMouseInRectOfViewUntilMouseUp(mouse(Event::Type::LeftMouseDown, InRemoveButton), view.frame,
                                            view, true);
    EXPECT_EQ(seen, (QList<std::pair<bool, bool>>{{true, false}, {true, false}, {true, true}}));
    EXPECT_EQ(events.masks, (QList<quint64>{0x44, 0x44, 0x44}));
    EXPECT_FALSE(cell.mouseDown());
    EXPECT_FALSE(cell.mouseInsideTrackingArea());
}

TEST_F(SRRecorderCellTest, mouseDownOutsideTheButton_redrawsNothing)
{
    cell.setKeyCombo({Command, 6});
    view.displays = 0;
    int displaysAtFirstWait = -1;
    events.arrives = [&](const Event&) { displaysAtFirstWait = view.displays; };
    Event up;
    up.type = Event::Type::LeftMouseUp;
    up.locationInWindow = view.inWindow({50, 40});
    events.events = {up};
    Event down;
    down.type = Event::Type::LeftMouseDown;
    down.locationInWindow = view.inWindow(InMainArea);
    cell.trackMouseInRectOfViewUntilMouseUp(down, view.frame, view, true);
    EXPECT_EQ(displaysAtFirstWait, 0);
    EXPECT_GE(view.displays, 1);
}

TEST_F(SRRecorderCellTest, windowGoingAwayWhileTracking_endsIt_andTouchesNothingMore)
{
    cell.setKeyCombo({Command, 6});
    Event down;
    down.type = Event::Type::LeftMouseDown;
    down.locationInWindow = view.inWindow(InRemoveButton);
    EXPECT_TRUE(cell.trackMouseInRectOfViewUntilMouseUp(down, view.frame, view, true));
    EXPECT_TRUE(cell.mouseDown());
    EXPECT_EQ(cell.keyCombo().code, 6);
    EXPECT_FALSE(view.firstResponder);
}

TEST_F(SRRecorderCellTest, anyOtherEvent_endsTrackingLikeARelease)
{
    cell.setKeyCombo({Command, 6});
    Event moved;
    moved.type = Event::Type::MouseMoved;
    moved.locationInWindow = view.inWindow(InRemoveButton);
    EXPECT_TRUE(cell.trackMouseInRectOfViewUntilMouseUp(moved, view.frame, view, true));
    EXPECT_EQ(cell.keyCombo().code, -1);
    EXPECT_TRUE(events.masks.isEmpty());
}

TEST_F(SRRecorderCellTest, clickIntoTheMainArea_withAnimation_endsInTheTransition)
{
    cell.setAnimates(true);
    cell.setStyle(1);
    click({InMainArea, InMainArea});
    EXPECT_TRUE(cell.isAnimatingNow());
    EXPECT_FALSE(cell.isRecording());
    EXPECT_TRUE(view.firstResponder);
}

TEST_F(SRRecorderCellTest, trackingRectangles_followTheState)
{
    cell.setKeyCombo({Command, 6});
    application.event = Event();
    application.event->locationInWindow = view.inWindow(InRemoveButton);
    cell.resetTrackingRects();
    ASSERT_EQ(view.tracked.size(), 1);
    EXPECT_EQ(view.tracked.first().rect, QRectF(182, 4, 14, 14));
    EXPECT_TRUE(view.tracked.first().assumedInside);
    EXPECT_TRUE(cell.mouseInsideTrackingArea());

    cell.resetTrackingRects();
    EXPECT_EQ(view.tracked.size(), 1) << "the new one takes the place of the old one";

    startRecording();
    application.event->locationInWindow = view.inWindow(InMainArea);
    cell.resetTrackingRects();
    EXPECT_EQ(view.tracked.size(), 2) << "that of the other button stays";
    EXPECT_EQ(view.tracked.last().rect, QRectF(184, 5, 14, 14));
    EXPECT_FALSE(view.tracked.last().assumedInside);
    EXPECT_FALSE(cell.mouseInsideTrackingArea());

    cell.setEnabled(false);
    cell.resetTrackingRects();
    EXPECT_TRUE(view.tracked.isEmpty());
}

TEST_F(SRRecorderCellTest, trackingRectangle_ofAnEmptyCell_isTheZeroRectangle)
{
    application.event = Event();
    application.event->locationInWindow = view.origin;
    cell.resetTrackingRects();
    ASSERT_EQ(view.tracked.size(), 1);
    EXPECT_EQ(view.tracked.first().rect, QRectF());
    EXPECT_FALSE(cell.mouseInsideTrackingArea());
}

TEST_F(SRRecorderCellTest, mouseEnteredAndExited_countInAKeyWindow_orWhereTheFirstClickCounts)
{
    struct Row
    {
        bool key;
        bool firstMouse;
        bool counts;
    };
    for (const Row& row : {Row{true, false, true}, Row{false, true, true}, Row{false, false, false}}) {
        view.keyWindow = true;
        cell.mouseExited({});
        view.keyWindow = row.key;
        view.takesFirstMouse = row.firstMouse;
        view.displays = 0;
        cell.mouseEntered({});
        EXPECT_EQ(cell.mouseInsideTrackingArea(), row.counts);
        EXPECT_EQ(view.displays, row.counts ? 1 : 0);
        view.keyWindow = true;
        cell.mouseEntered({});
        view.keyWindow = row.key;
        cell.mouseExited({});
        EXPECT_EQ(cell.mouseInsideTrackingArea(), !row.counts);
    }
}
