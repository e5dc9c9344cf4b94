// SPDX-License-Identifier: MIT
#include "platform/macos/workspace/CarbonFrontSwitch.h"

#include "platform/qt/menu/MenuTracking.h"
#include "tests/macos/MacTest.h"

#include <QCoreApplication>

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
    EXPECT_TRUE(mac.switchFront()) << "the event goes no further";
    EXPECT_EQ(switches, 1);
    mac.switchFront();
    EXPECT_EQ(switches, 2);
}

TEST_F(CarbonFrontSwitchTest, install_refused_isFalse)
{
    mac.fail(u"InstallEventHandler"_s, -50);
    EXPECT_FALSE(frontSwitch.install(count));
    mac.switchFront();
    EXPECT_EQ(switches, 0);
}

TEST_F(CarbonFrontSwitchTest, switchWhileAMenuIsOpen_closesItAndIsToldAfterwards)
{
    EXPECT_TRUE(frontSwitch.install(count));
    MenuTracking& tracking = MenuTracking::shared();
    int cancels = 0;
    const auto connection =
        QObject::connect(&tracking, &MenuTracking::cancelRequested, &tracking, [&] { ++cancels; });
    tracking.begin();
    mac.switchFront();
    mac.switchFront();
    EXPECT_EQ(cancels, 2);
    EXPECT_EQ(switches, 0);
    tracking.end();
    EXPECT_EQ(switches, 0) << "the call that opened the menu has not returned yet";
    QCoreApplication::processEvents();
    EXPECT_EQ(switches, 2) << "each switch is told, none are merged";
    QObject::disconnect(connection);
}

TEST_F(CarbonFrontSwitchTest, switchThatANextMenuOvertakes_waitsForItsEndToo)
{
    EXPECT_TRUE(frontSwitch.install(count));
    MenuTracking::shared().begin();
    mac.switchFront();
    MenuTracking::shared().end();
    MenuTracking::shared().begin();
    QCoreApplication::processEvents();
    EXPECT_EQ(switches, 0);
    MenuTracking::shared().end();
    QCoreApplication::processEvents();
    EXPECT_EQ(switches, 1);
}

TEST_F(CarbonFrontSwitchTest, menuThatClosesWithoutASwitch_tellsNothing)
{
    EXPECT_TRUE(frontSwitch.install(count));
    MenuTracking::shared().begin();
    MenuTracking::shared().end();
    QCoreApplication::processEvents();
    EXPECT_EQ(switches, 0);
}

} // namespace tarnwick
