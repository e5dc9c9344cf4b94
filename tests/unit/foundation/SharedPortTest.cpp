// SPDX-License-Identifier: MIT
#include "foundation/SharedPort.h"

#include "tests/fakes/SharedPorts.h"

#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

class Bell : public SharedPort<Bell>
{
};

class Lamp : public SharedPort<Lamp>
{
};

class SmallBell final : public Bell
{
};

} // namespace

TEST(SharedPort, portThatNobodyHasSet_isNull)
{
    EXPECT_EQ(Bell::sharedOrNull(), nullptr);
}

TEST(SharedPort, portHasTheAdapterThatWasSetLast_andItsOwn)
{
    Bell first;
    SmallBell second;
    Bell::setShared(&first);
    EXPECT_EQ(&Bell::shared(), &first);
    SmallBell::setShared(&second);
    EXPECT_EQ(&Bell::shared(), &second);
    EXPECT_EQ(Bell::sharedOrNull(), &second);
    EXPECT_EQ(Lamp::sharedOrNull(), nullptr) << "each port its own";
    Bell::setShared(nullptr);
    EXPECT_EQ(Bell::sharedOrNull(), nullptr);
}

TEST(SharedPorts, portsHaveTheAdaptersForAsLongAsItLives_andThoseFromBeforeAgain)
{
    Bell bell;
    Lamp lamp;
    {
        const SharedPorts sharedPorts(bell, lamp);
        EXPECT_EQ(&Bell::shared(), &bell);
        EXPECT_EQ(&Lamp::shared(), &lamp);
        {
            SmallBell first;
            SmallBell second;
            const SharedPorts inner(first, second);
            EXPECT_EQ(&Bell::shared(), &second);
        }
        EXPECT_EQ(&Bell::shared(), &bell) << "restored from the last to the first";
        EXPECT_EQ(&Lamp::shared(), &lamp);
    }
    EXPECT_EQ(Bell::sharedOrNull(), nullptr);
    EXPECT_EQ(Lamp::sharedOrNull(), nullptr);
}
