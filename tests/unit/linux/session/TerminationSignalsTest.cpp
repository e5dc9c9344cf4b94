// SPDX-License-Identifier: MIT
#include "platform/linux/session/TerminationSignals.h"

#include <QTest>
#include <gtest/gtest.h>

#include <csignal>

using namespace tarnwick;

namespace {

TEST(TerminationSignals, eachSignal_isACallFromTheEventLoop)
{
    int requests = 0;
    const TerminationSignals signals_([&] { ++requests; });
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const int before = requests;
        std::raise(number);
        EXPECT_EQ(requests, before) << "never inside the signal";
        EXPECT_TRUE(QTest::qWaitFor([&] { return requests == before + 1; }));
    }
}

TEST(TerminationSignals, signalThatWasIgnored_staysIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    int requests = 0;
    {
        const TerminationSignals signals_([&] { ++requests; });
        struct sigaction now = {};
        ASSERT_EQ(::sigaction(SIGHUP, nullptr, &now), 0);
        EXPECT_EQ(now.sa_handler, SIG_IGN);
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        EXPECT_TRUE(QTest::qWaitFor([&] { return requests > 0; }));
        EXPECT_EQ(requests, 1);
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

TEST(TerminationSignals, end_givesTheSignalsBack)
{
    {
        const TerminationSignals signals_([] {});
    }
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

} // namespace
