// SPDX-License-Identifier: MIT
#include "platform/qt/menu/TypeAhead.h"

#include <QString>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

TEST(TypeAhead, givesWhatWaits_once)
{
    TypeAhead ahead(QList<QString>{u"Down"_s, u"Return"_s});
    EXPECT_FALSE(ahead.isOnTheWay()) << "nothing was sent yet";
    EXPECT_EQ(ahead.take(), (QList<QString>{u"Down"_s, u"Return"_s}));
    EXPECT_TRUE(ahead.take().isEmpty());
}

TEST(TypeAhead, whatWasSent_isOnTheWayUntilAllOfItHasArrived)
{
    TypeAhead<QString> ahead;
    EXPECT_FALSE(ahead.arrives()) << "a key of the user's";
    ahead.sent();
    ahead.sent();
    EXPECT_TRUE(ahead.arrives());
    EXPECT_TRUE(ahead.isOnTheWay()) << "a key that comes now would overtake the other";
    EXPECT_TRUE(ahead.arrives());
    EXPECT_FALSE(ahead.isOnTheWay());
    EXPECT_FALSE(ahead.arrives());
}

} // namespace
} // namespace tarnwick
