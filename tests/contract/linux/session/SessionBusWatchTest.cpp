// SPDX-License-Identifier: MIT
// A session bus of the tests' own, which comes and goes under one watch: the toolkit's connection to it ends
// with the first time, as it does in the program.
#include "platform/linux/session/SessionBusWatch.h"

#include "tests/FairTimer.h"
#include "tests/contract/session/BusDaemon.h"
#include "tests/contract/session/DeafBus.h"

#include <QDBusConnectionInterface>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int SomeAttempts = 4500; // ms; there is one every 2 s
constexpr int Patience = 20000;    // ms, for a machine that has much to do

class SessionBusWatchTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus().address());
        ASSERT_TRUE(watch().connection().isConnected());
    }

    static BusDaemon& bus()
    {
        static BusDaemon daemon;
        return daemon;
    }
    static SessionBusWatch& watch()
    {
        static SessionBusWatch one;
        return one;
    }

    static bool serves(const QDBusConnection& connection)
    {
        return connection.isConnected() &&
               !connection.interface()->registeredServiceNames().value().isEmpty();
    }
    void endBus()
    {
        const qsizetype before = changed.count();
        bus().stop();
        ASSERT_TRUE(QTest::qWaitFor([&] { return changed.count() > before; }, Patience));
        ASSERT_FALSE(watch().connection().isConnected());
    }
    void startBus()
    {
        const qsizetype before = changed.count();
        bus().start();
        ASSERT_TRUE(QTest::qWaitFor([&] { return changed.count() > before; }, Patience));
        EXPECT_TRUE(serves(watch().connection()));
    }

    QSignalSpy changed{&watch(), &SessionBusWatch::changed};
};

TEST_F(SessionBusWatchTest, busThatGoesAndComesBack_isFoundEachTime)
{
    for (int time = 1; time <= 2; ++time) {
        endBus();
        startBus();
        EXPECT_EQ(changed.count(), 2 * time) << "once for each going and each coming";
    }
    const QString name = watch().connection().baseService();
    QTest::qWait(SomeAttempts);
    EXPECT_EQ(changed.count(), 4);
    EXPECT_EQ(watch().connection().baseService(), name) << "a connection that stands is not made again";
}

TEST_F(SessionBusWatchTest, noBus_isNoNews)
{
    endBus();
    changed.clear();
    QTest::qWait(SomeAttempts);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_FALSE(watch().connection().isConnected());
    startBus();
}

TEST_F(SessionBusWatchTest, busThatDoesNotAnswer_isGivenUpSoon_andAskedAgain)
{
    endBus();
    {
        const DeafBus deaf(bus().path());
        ASSERT_TRUE(deaf.listens());
        changed.clear();
        QElapsedTimer all;
        all.start();
        qint64 longest = 0;
        while (all.elapsed() < SomeAttempts) {
            FairTimer turn;
            turn.start();
            QTest::qWait(1);
            longest = std::max(longest, turn.elapsed());
            EXPECT_LE(turn.fairElapsed(), 2000) << "the toolkit itself would wait for 25 s";
        }
        EXPECT_GE(longest, 190) << "it was asked";
        EXPECT_EQ(changed.count(), 0);
        EXPECT_FALSE(watch().connection().isConnected());
    }
    startBus();
}

} // namespace
