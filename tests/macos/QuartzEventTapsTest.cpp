// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/QuartzEventTaps.h"

#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class QuartzEventTapsTest : public MacTest
{
protected:
    static constexpr quint64 OtherMouseDownMask = 0x2000000;
    // The order of destruction matters: the system is looked at once the adapter is gone.
    std::unique_ptr<QuartzEventTaps> taps = std::make_unique<QuartzEventTaps>();
    QList<quint32> seen;
    FakeClock clock;
    SharedPorts sharedPorts{clock};

    void SetUp() override { MacTest::SetUp(); }

    void TearDown() override
    {
        taps.reset();
        MacTest::TearDown();
    }

    EventTapRef create(const EventTapCallback& callback)
    {
        return taps->create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                            EventTaps::EventTapOptionDefault, OtherMouseDownMask, callback);
    }

    EventTapRef createSeeing()
    {
        return create([this](quint32 type, const TappedEvent* event) {
            seen.append(type);
            return event;
        });
    }

    EventTapRef createAndSchedule()
    {
        const EventTapRef tap = createSeeing();
        taps->addSourceToMainRunLoop(tap);
        taps->enable(tap, true);
        keepSource();
        return tap;
    }
};

TEST_F(QuartzEventTapsTest, create_handsEveryNumberOn)
{
    EXPECT_NE(createSeeing(), 0u);
    // Location, placement, options, events of interest, a callback with user data.
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), (QList<QVariantList>{{2, 0, 0, 0x2000000ull, true, true}}));
}

TEST_F(QuartzEventTapsTest, events_passTheTapsInTheOrderOfTheirPlaces)
{
    struct Row
    {
        const char* name;
        quint32 location;
        quint32 placement;
    };
    QStringList passed;
    for (const Row& row :
         {Row{"first", 2, 0}, {"tail", 2, 1}, {"session", 1, 0}, {"hardware", 0, 1}, {"head", 2, 0}}) {
        const EventTapRef tap = taps->create(
            static_cast<EventTaps::Location>(row.location), static_cast<EventTaps::Placement>(row.placement),
            EventTaps::EventTapOptionDefault, OtherMouseDownMask,
            [&passed, name = QString::fromLatin1(row.name)](quint32, const TappedEvent* event) {
                passed.append(name);
                return event;
            });
        taps->addSourceToMainRunLoop(tap);
        taps->enable(tap, true);
        keepSource();
    }
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(passed, (QStringList{u"hardware"_s, u"session"_s, u"head"_s, u"first"_s, u"tail"_s}));
}

TEST_F(QuartzEventTapsTest, placeThatTheSystemDoesNotKnow_isRefused)
{
    const auto nothing = [](quint32, const TappedEvent* event) { return event; };
    for (const auto& [location, placement] : {std::pair(3u, 0u), {2u, 2u}}) {
        EXPECT_EQ(taps->create(static_cast<EventTaps::Location>(location),
                               static_cast<EventTaps::Placement>(placement), EventTaps::EventTapOptionDefault,
                               OtherMouseDownMask, nothing),
                  0u);
    }
}

TEST_F(QuartzEventTapsTest, source_isMadeWithOrderZeroAndAddedInTheCommonModes)
{
    createAndSchedule();
    EXPECT_EQ(mac.callsOf(u"CFMachPortCreateRunLoopSource"_s),
              (QList<QVariantList>{{QVariant(), u"CGEventTapCreate 1"_s, 0}}));
    EXPECT_EQ(mac.callsOf(u"CFRunLoopAddSource"_s),
              (QList<QVariantList>{{u"CFRunLoopGetCurrent"_s, u"CFMachPortCreateRunLoopSource 1"_s,
                                    u"kCFRunLoopCommonModes"_s}}));
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{u"CGEventTapCreate 1"_s, true}}));
}

TEST_F(QuartzEventTapsTest, press_isSeenAndGoesOn)
{
    createAndSchedule();
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen, QList<quint32>{25});
}

TEST_F(QuartzEventTapsTest, eventsOfNoInterest_areNotSeen)
{
    createAndSchedule();
    for (const quint32 type : {1u, 2u, 3u, 4u, 26u, 27u})
        EXPECT_TRUE(mac.sendEvent(type));
    EXPECT_TRUE(seen.isEmpty());
}

TEST_F(QuartzEventTapsTest, eventThatTheCallbackSwallows_goesNowhere)
{
    const EventTapRef tap = create([](quint32, const TappedEvent*) { return nullptr; });
    taps->addSourceToMainRunLoop(tap);
    taps->enable(tap, true);
    keepSource();
    EXPECT_FALSE(mac.sendEvent(25));
}

TEST_F(QuartzEventTapsTest, disabledTap_isToldAndCanRepairItself)
{
    for (const quint32 reason : {0xFFFFFFFEu, 0xFFFFFFFFu}) {
        seen.clear();
        EventTapRef tap = 0;
        tap = create([&](quint32 type, const TappedEvent* event) -> const TappedEvent* {
            seen.append(type);
            if (type + 2 > 1)
                return event;
            taps->enable(tap, true);
            return nullptr;
        });
        taps->addSourceToMainRunLoop(tap);
        taps->enable(tap, true);
        keepSource();
        EXPECT_TRUE(mac.disableTap(reason)) << "the notice is swallowed";
        EXPECT_TRUE(mac.sendEvent(25));
        EXPECT_EQ(seen, (QList<quint32>{reason, 25}));
        taps->enable(tap, false);
        taps->release(tap);
    }
}

TEST_F(QuartzEventTapsTest, disabledTapThatPassesTheNoticeOn_staysOff)
{
    createAndSchedule();
    EXPECT_TRUE(mac.disableTap(0xFFFFFFFE)) << "there is no event to give back";
    EXPECT_EQ(mac.enabledTaps(), 0);
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen, QList<quint32>{0xFFFFFFFE});
}

TEST_F(QuartzEventTapsTest, releasedTap_seesNothingMore)
{
    const EventTapRef tap = createAndSchedule();
    taps->enable(tap, false);
    taps->release(tap);
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_TRUE(seen.isEmpty());
    // The numbers of released taps mean nothing any more.
    const auto calls = mac.calls().size();
    taps->enable(tap, true);
    taps->release(tap);
    taps->addSourceToMainRunLoop(tap);
    taps->enable(0, true);
    EXPECT_EQ(mac.calls().size(), calls);
}

TEST_F(QuartzEventTapsTest, tapReleasedWhileEnabled_isSilentToo)
{
    const EventTapRef tap = createAndSchedule();
    taps->release(tap);
    EXPECT_TRUE(mac.sendEvent(25)) << "its source still delivers";
    EXPECT_TRUE(seen.isEmpty());
}

TEST_F(QuartzEventTapsTest, tapReleasedInsideItsOwnCallback_endsWithThatCallback)
{
    EventTapRef tap = 0;
    tap = create([&](quint32 type, const TappedEvent* event) {
        taps->enable(tap, false);
        taps->release(tap);
        seen.append(type);
        return event;
    });
    taps->addSourceToMainRunLoop(tap);
    taps->enable(tap, true);
    keepSource();
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen, QList<quint32>{25});
}

TEST_F(QuartzEventTapsTest, severalTaps_liveSideBySideUnderNumbersOfTheirOwn)
{
    const EventTapRef first = createAndSchedule();
    const EventTapRef second = createAndSchedule();
    EXPECT_NE(first, second);
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen, (QList<quint32>{25, 25}));
    taps->enable(second, false);
    taps->release(second);
    EXPECT_NE(createSeeing(), second);
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen.size(), 3);
}

TEST_F(QuartzEventTapsTest, refusedTap_isZero)
{
    mac.fail(u"CGEventTapCreate"_s);
    EXPECT_EQ(createSeeing(), 0u);
}

TEST_F(QuartzEventTapsTest, tapRefusedForWantOfAccess_waitsForItInTheStateThatItIsToHave)
{
    mac.processTrusted = false;
    const EventTapRef tap = createSeeing();
    ASSERT_NE(tap, 0u) << "the program goes on, and asks for access";
    taps->addSourceToMainRunLoop(tap);
    taps->enable(tap, false);
    taps->enable(tap, true);
    EXPECT_TRUE(mac.callsOf(u"CGEventTapEnable"_s).isEmpty());
    clock.advance(10);
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s).size(), 1) << "no tap is tried without access";
    EXPECT_EQ(clock.pending(), 1);
    mac.processTrusted = true;
    clock.advance(2);
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s), (QList<QVariantList>{{2, 0, 0, 0x2000000ull, true, true},
                                                                       {2, 0, 0, 0x2000000ull, true, true}}));
    EXPECT_EQ(mac.callsOf(u"CGEventTapEnable"_s), (QList<QVariantList>{{u"CGEventTapCreate 1"_s, true}}))
        << "the last state";
    keepSource();
    EXPECT_EQ(clock.pending(), 0);
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(seen, QList<quint32>{25});
}

TEST_F(QuartzEventTapsTest, waitingTapThatIsReleased_isNotMadeAnyMore)
{
    mac.processTrusted = false;
    const EventTapRef tap = createSeeing();
    const EventTapRef other = createSeeing();
    taps->release(tap);
    mac.processTrusted = true;
    clock.advance(2);
    EXPECT_EQ(mac.callsOf(u"CGEventTapCreate"_s).size(), 3);
    taps->release(other);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(QuartzEventTapsTest, waitingTapThatIsRefusedAgain_waitsOn)
{
    mac.processTrusted = false;
    EXPECT_NE(createSeeing(), 0u);
    mac.processTrusted = true;
    mac.fail(u"CGEventTapCreate"_s);
    clock.advance(2);
    EXPECT_EQ(clock.pending(), 1);
    mac.repair(u"CGEventTapCreate"_s);
    clock.advance(2);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(QuartzEventTapsTest, endOfTheProgram_switchesTheTapsOffThatAreLeft)
{
    createAndSchedule();
    taps.reset();
    EXPECT_EQ(mac.enabledTaps(), 0);
}

} // namespace tarnwick
