// SPDX-License-Identifier: MIT
#include "mouse/QMMouseHotKey.h"

#include "mouse/QMMouseHotKeyTap.h"
#include "tests/fakes/FakeEventTaps.h"
#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 LeftDown = 1;
constexpr quint32 RightDown = 3;
constexpr quint32 OtherDown = 25;
constexpr quint32 OtherUp = 26;

class Listener final : public QMMouseHotKeyDelegate
{
public:
    QList<std::pair<const QMMouseHotKey*, quint64>> presses;
    void mouseHotKeyMouseButtonActioned(QMMouseHotKey& sender, quint64 code) override
    {
        presses.append({&sender, code});
    }
};

class DeafListener final : public QMMouseHotKeyDelegate
{
};

class QMMouseHotKeyTest : public ::testing::Test
{
protected:
    QMMouseHotKeyTest() { taps.journal = &journal; }

    FakeEventTaps::Tap& tap() { return taps.taps[mouse_hot_key::eventTapM]; }

    Journal journal;
    FakeEventTaps taps;
    SharedPorts sharedPorts{taps};
    Listener listener;
    QMMouseHotKey mouseHotKey;
};

TEST_F(QMMouseHotKeyTest, waking_createsSchedulesAndEnablesOneTap_inThisOrder)
{
    mouseHotKey.awakeFromNib();

    EXPECT_EQ(journal, (Journal{u"create"_s, u"add source"_s, u"enable"_s}));
    ASSERT_EQ(taps.taps.size(), 1);
    EXPECT_EQ(static_cast<int>(tap().location), 2);
    EXPECT_EQ(static_cast<int>(tap().placement), 0);
    EXPECT_EQ(static_cast<int>(tap().options), 0);
    EXPECT_EQ(tap().eventsOfInterest, 0x2000000U);
    EXPECT_TRUE(tap().inMainRunLoop);
    EXPECT_TRUE(tap().enabled);
}

TEST_F(QMMouseHotKeyTest, pressOfAnExtraButton_tellsTheDelegateTheEventType_andGoesOnToTheApplication)
{
    mouseHotKey.setDelegate(&listener);
    mouseHotKey.awakeFromNib();

    EXPECT_TRUE(taps.send(OtherDown)) << "the application under the mouse gets the click as well";

    ASSERT_EQ(listener.presses.size(), 1);
    EXPECT_EQ(listener.presses.first().first, &mouseHotKey);
    EXPECT_EQ(listener.presses.first().second, 25U);
    EXPECT_EQ(taps.passedOn, 1);
}

TEST_F(QMMouseHotKeyTest, otherEvents_neverReachTheCallback)
{
    mouseHotKey.setDelegate(&listener);
    mouseHotKey.awakeFromNib();
    for (const quint32 type : {LeftDown, RightDown, OtherUp}) {
        EXPECT_TRUE(taps.send(type));
        EXPECT_EQ(taps.passedOn, 0);
    }
    EXPECT_TRUE(listener.presses.isEmpty());
}

TEST_F(QMMouseHotKeyTest, callback_ofAnotherType_storesItAndTellsNobody)
{
    mouseHotKey.setDelegate(&listener);
    mouseHotKey.awakeFromNib();
    const TappedEvent event;

    EXPECT_EQ(mouseCGEventCallback(mouse_hot_key::eventTapM, OtherDown, &event, &mouseHotKey), &event);
    EXPECT_EQ(mouse_hot_key::mouse, 25U);
    EXPECT_EQ(mouseCGEventCallback(mouse_hot_key::eventTapM, OtherUp, &event, &mouseHotKey), &event);
    EXPECT_EQ(mouse_hot_key::mouse, 26U);
    EXPECT_EQ(mouseCGEventCallback(mouse_hot_key::eventTapM, 0xFFFFFFFDU, &event, &mouseHotKey), &event)
        << "just below the two reasons for switching off";
    EXPECT_EQ(mouse_hot_key::mouse, 0xFFFFFFFDU);
    EXPECT_EQ(mouseCGEventCallback(mouse_hot_key::eventTapM, 0, &event, &mouseHotKey), &event);
    EXPECT_EQ(mouse_hot_key::mouse, 0U);

    EXPECT_EQ(listener.presses.size(), 1);
}

TEST_F(QMMouseHotKeyTest, tapThatTheSystemSwitchedOff_isEnabledAgain_andTheWordOfItEndsHere)
{
    mouseHotKey.setDelegate(&listener);
    mouseHotKey.awakeFromNib();
    mouse_hot_key::mouse = OtherDown;
    for (const quint32 reason : {0xFFFFFFFEU, 0xFFFFFFFFU}) {
        EXPECT_TRUE(taps.switchOff(mouse_hot_key::eventTapM, reason));
        EXPECT_TRUE(tap().enabled);
        EXPECT_EQ(mouse_hot_key::mouse, OtherDown) << "it is no event of the mouse";
    }
    EXPECT_TRUE(listener.presses.isEmpty());
    EXPECT_TRUE(taps.send(OtherDown));
    EXPECT_EQ(listener.presses.size(), 1) << "the next press is seen again";
}

TEST_F(QMMouseHotKeyTest, pressWithoutADelegateThatResponds_isDroppedAndGoesOn)
{
    mouseHotKey.awakeFromNib();
    EXPECT_EQ(mouseHotKey.delegate(), nullptr);
    EXPECT_TRUE(taps.send(OtherDown));

    DeafListener deaf;
    mouseHotKey.setDelegate(&deaf);
    EXPECT_EQ(mouseHotKey.delegate(), &deaf);
    EXPECT_TRUE(taps.send(OtherDown));
    EXPECT_EQ(taps.passedOn, 1);
}

TEST_F(QMMouseHotKeyTest, enableAndDisable_switchTheTap)
{
    mouseHotKey.setDelegate(&listener);
    mouseHotKey.awakeFromNib();
    mouseHotKey.disableTap();
    EXPECT_FALSE(tap().enabled);
    EXPECT_TRUE(taps.send(OtherDown));
    EXPECT_TRUE(listener.presses.isEmpty());
    mouseHotKey.enableTap();
    EXPECT_TRUE(taps.send(OtherDown));
    EXPECT_EQ(listener.presses.size(), 1);
}

TEST_F(QMMouseHotKeyTest, killing_disablesTheTapBeforeReleasingIt)
{
    mouseHotKey.awakeFromNib();
    journal.clear();
    mouseHotKey.killTap();
    EXPECT_EQ(journal, (Journal{u"disable"_s, u"release"_s}));
    EXPECT_TRUE(taps.taps.isEmpty());
}

TEST_F(QMMouseHotKeyTest, notificationNames_areTheirTexts)
{
    EXPECT_EQ(RightMouseButtonDownNotification, u"RightMouseButtonDown"_s);
    EXPECT_EQ(RightMouseButtonUpNotification, u"RightMouseButtonUp"_s);
    EXPECT_EQ(MouseButtonDownNotification, u"MouseButtonDown"_s);
    EXPECT_EQ(MouseButtonUpNotification, u"MouseButtonUp"_s);
}

using QMMouseHotKeyDeathTest = QMMouseHotKeyTest;

TEST_F(QMMouseHotKeyDeathTest, refusedTap_endsTheProcessWithStatus1AndAMessage)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    taps.refuses = true;
    EXPECT_EXIT(mouseHotKey.awakeFromNib(), ::testing::ExitedWithCode(1), "failed to create event tap\n$");
    EXPECT_TRUE(taps.everMade.isEmpty());
}

} // namespace
