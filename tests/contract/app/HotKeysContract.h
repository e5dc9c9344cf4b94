// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace tarnwick {

/// What the core relies on of hot keys. `press` lets the user press and release F5 (96) with Option, and
/// returns when everything that follows from it has happened. Nobody has installed a handler before.
inline void hotKeysContract(HotKeys& hotKeys, const std::function<void()>& press)
{
    constexpr quint32 f5 = 96;
    constexpr quint32 option = 0x800;
    constexpr qint32 notHandled = -9874;

    QStringList calls;
    bool newestHandles = false;
    hotKeys.installEventHandler([&] {
        calls.append(QStringLiteral("older"));
        return HotKeys::noErr;
    });
    hotKeys.installEventHandler([&] {
        calls.append(QStringLiteral("newer"));
        return newestHandles ? HotKeys::noErr : notHandled;
    });
    press();
    EXPECT_TRUE(calls.isEmpty()) << "nothing is registered";

    const auto first = hotKeys.registerEventHotKey(f5, option, {}, 0);
    ASSERT_TRUE(first);
    press();
    EXPECT_EQ(calls, (QStringList{QStringLiteral("newer"), QStringLiteral("older")}))
        << "from the newest to the oldest until one has dealt with it";
    calls.clear();
    newestHandles = true;
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("newer")});

    EXPECT_TRUE(hotKeys.unregisterEventHotKey(*first));
    EXPECT_FALSE(hotKeys.unregisterEventHotKey(*first)) << "it is gone";
    calls.clear();
    press();
    EXPECT_TRUE(calls.isEmpty()) << "it is given back";

    const auto second = hotKeys.registerEventHotKey(f5, option, {}, 0);
    ASSERT_TRUE(second) << "and can be had again";
    EXPECT_NE(*second, *first) << "under a name that was never used";
    EXPECT_FALSE(hotKeys.unregisterEventHotKey(*first)) << "the old name stays dead";
    press();
    EXPECT_EQ(calls, QStringList{QStringLiteral("newer")});

    for (const quint32 outside : {128U, 0xFFFFFFFFU})
        EXPECT_FALSE(hotKeys.registerEventHotKey(outside, option, {}, 0)) << outside;
    EXPECT_TRUE(hotKeys.unregisterEventHotKey(*second));
}

} // namespace tarnwick
