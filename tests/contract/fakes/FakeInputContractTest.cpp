// SPDX-License-Identifier: MIT
#include "tests/contract/app/HotKeysContract.h"
#include "tests/contract/mouse/EventTapsContract.h"
#include "tests/fakes/FakeEventTaps.h"
#include "tests/fakes/FakeHotKeys.h"

using namespace tarnwick;

TEST(FakeHotKeys, keepsThePromisesOfHotKeys)
{
    FakeHotKeys hotKeys;
    hotKeysContract(hotKeys, [&] { hotKeys.press(96, 0x800); });
}

TEST(FakeEventTaps, keepsThePromisesOfEventTaps)
{
    FakeEventTaps taps;
    eventTapsContract(taps, [&] { taps.send(EventTapOtherMouseDown); });
}
