// SPDX-License-Identifier: MIT
#include "foundation/NotificationCenter.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <optional>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QString Name = u"Something"_s;

TEST(NotificationCenter, observer_hasRunWithNamePosterAndUserInfo_whenPostReturns)
{
    NotificationCenter center;
    const int poster = 0;
    std::optional<Notification> received;
    const auto observer = center.addObserver(Name, &poster, [&](const Notification& n) { received = n; });

    center.postNotificationName(Name, &poster, {{u"PID"_s, 42}});

    ASSERT_TRUE(received.has_value());
    EXPECT_EQ(received->name, Name);
    EXPECT_EQ(received->object, &poster);
    EXPECT_EQ(received->userInfo, (QVariantMap{{u"PID"_s, 42}}));
}

TEST(NotificationCenter, observer_isToldOfItsNameAndPosterOnly)
{
    NotificationCenter center;
    const int mine = 0;
    const int other = 0;
    QStringList told;
    const auto ofMine = center.addObserver(Name, &mine, [&](const Notification&) { told << u"mine"_s; });
    const auto ofAny = center.addObserver(Name, nullptr, [&](const Notification&) { told << u"any"_s; });

    center.postNotificationName(Name, &mine);
    EXPECT_EQ(told, (QStringList{u"mine"_s, u"any"_s})) << "in the order of observing";
    told.clear();
    center.postNotificationName(Name, &other);
    EXPECT_EQ(told, QStringList{u"any"_s});
    told.clear();
    center.postNotificationName(u"something"_s, &mine);
    EXPECT_TRUE(told.isEmpty());
}

TEST(NotificationCenter, observerThatIsDestroyed_isNotToldAnyMore)
{
    NotificationCenter center;
    int told = 0;
    auto observer = center.addObserver(Name, nullptr, [&](const Notification&) { ++told; });
    center.postNotificationName(Name, nullptr);
    observer.reset();
    center.postNotificationName(Name, nullptr);
    EXPECT_EQ(told, 1);
}

TEST(NotificationCenter, observersMayEndThemselvesAndEachOtherWhileTold)
{
    NotificationCenter center;
    QStringList told;
    std::unique_ptr<NotificationCenter::Observer> first;
    std::unique_ptr<NotificationCenter::Observer> second;
    first = center.addObserver(Name, nullptr, [&](const Notification&) {
        told << u"first"_s;
        second.reset();
        first.reset();
        told << u"first goes on"_s;
    });
    second = center.addObserver(Name, nullptr, [&](const Notification&) { told << u"second"_s; });

    center.postNotificationName(Name, nullptr);
    center.postNotificationName(Name, nullptr);
    EXPECT_EQ(told, (QStringList{u"first"_s, u"first goes on"_s}));
}

TEST(NotificationCenter, observerAddedWhileTold_isToldFromTheNextTimeOn)
{
    NotificationCenter center;
    int told = 0;
    std::unique_ptr<NotificationCenter::Observer> added;
    const auto observer = center.addObserver(Name, nullptr, [&](const Notification&) {
        if (!added)
            added = center.addObserver(Name, nullptr, [&](const Notification&) { ++told; });
    });
    center.postNotificationName(Name, nullptr);
    EXPECT_EQ(told, 0);
    center.postNotificationName(Name, nullptr);
    EXPECT_EQ(told, 1);
}

TEST(NotificationCenter, observerMayOutliveTheCentre)
{
    auto center = std::make_unique<NotificationCenter>();
    auto observer = center->addObserver(Name, nullptr, [](const Notification&) {});
    center.reset();
    observer.reset();
    EXPECT_EQ(observer, nullptr);
}

TEST(NotificationCenter, defaultCenter_isAlwaysTheSame)
{
    EXPECT_EQ(&NotificationCenter::defaultCenter(), &NotificationCenter::defaultCenter());
}

} // namespace
