// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/CarbonFrontSwitch.h"

#include "platform/qt/menu/MenuTracking.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class CarbonFrontSwitchTest : public MacTest
{
protected:
    CarbonFrontSwitch frontSwitch;
    int switches = 0;
    std::function<void()> count = [this] { ++switches; };
};

TEST_F(CarbonFrontSwitchTest, install_asksForFrontSwitchesOfTheApplicationTarget)
{
    EXPECT_TRUE(frontSwitch.install(count));
    // A handler for one event type, class "appl", kind 7, with user data; no reference to it is kept.
    EXPECT_EQ(
        mac.callsOf(u"InstallEventHandler"_s),
        (QList<QVariantList>{{u"GetApplicationEventTarget"_s, true, 1, 0x6170706Cu, 7, true, QVariant()}}));
}

TEST_F(CarbonFrontSwitchTest, everySwitch_runsTheCallbackInsideTheEvent)
{
    EXPECT_TRUE(frontSwitch.install(count));
    EXPECT_TRUE(mac.activate(201)) << "the event goes no further";
    EXPECT_EQ(switches, 1);
    mac.activate(202);
    EXPECT_EQ(switches, 2);
    EXPECT_FALSE(mac.activate(202)) << "no switch";
    EXPECT_EQ(switches, 2);
}

TEST_F(CarbonFrontSwitchTest, install_refused_isFalse)
{
    mac.fail(u"InstallEventHandler"_s, -50);
    EXPECT_FALSE(frontSwitch.install(count));
    mac.activate(203);
    EXPECT_EQ(switches, 0);
}

TEST_F(CarbonFrontSwitchTest, switchesWhileAMenuIsOpen_areToldOnceItHasClosed)
{
    EXPECT_TRUE(frontSwitch.install(count));
    {
        const MenuTracking::Span tracking;
        mac.menuIsOpen = true;
        EXPECT_FALSE(mac.activate(204)) << "the system keeps it";
        EXPECT_FALSE(mac.activate(205));
        mac.menuIsOpen = false;
    }
    EXPECT_EQ(switches, 0) << "the call that opened the menu has not returned yet";
    EXPECT_EQ(mac.deliverEvents(), 2);
    EXPECT_EQ(switches, 2) << "each switch is told, none are merged";
}

TEST_F(CarbonFrontSwitchTest, applicationThatBecomesActive_closesTheOpenMenuOnly)
{
    MenuTracking& tracking = MenuTracking::shared();
    int cancels = 0;
    const auto connection =
        QObject::connect(&tracking, &MenuTracking::cancelRequested, &tracking, [&] { ++cancels; });
    CarbonFrontSwitch::applicationActivated();
    EXPECT_EQ(cancels, 0);
    {
        const MenuTracking::Span span;
        CarbonFrontSwitch::applicationActivated();
        EXPECT_EQ(cancels, 1);
    }
    CarbonFrontSwitch::applicationActivated();
    EXPECT_EQ(cancels, 1);
    QObject::disconnect(connection);
}

} // namespace tarnwick
