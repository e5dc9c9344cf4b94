// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtClock.h"
#include "tests/contract/foundation/ClockContract.h"
#include "tests/fakes/FakeClock.h"

#include <QTest>

using namespace tarnwick;

namespace {

TEST(Clock, fake_keepsTheContract)
{
    FakeClock clock;
    ClockContract(clock, [&clock](double seconds) { clock.advance(seconds); }).run();
}

TEST(Clock, realOne_keepsTheContract)
{
    QtClock clock;
    ClockContract(clock, [](double seconds) { QTest::qWait(qRound(seconds * 1000)); }).run();
}

} // namespace
