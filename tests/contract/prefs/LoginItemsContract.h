// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"

#include <gtest/gtest.h>

namespace tarnwick {

/// The URLs of the list's items in order, an empty one for an item that cannot be resolved.
inline QList<QUrl> urlsOf(LoginItems& items)
{
    const auto list = items.createSessionLoginItems();
    QList<QUrl> urls;
    for (const auto& item : list->copySnapshot())
        urls.append(list->resolve(*item, LoginItems::NoUserInteraction | LoginItems::DoNotMountVolumes)
                        .value_or(QUrl()));
    return urls;
}

/// What the core relies on of the login items. `items` is empty at first but for `other`, and `application`
/// names a program that exists.
inline void loginItemsContract(LoginItems& items, const QUrl& application, const QUrl& other)
{
    EXPECT_EQ(urlsOf(items), QList<QUrl>{other});

    items.createSessionLoginItems()->insertBeforeFirst(application);
    EXPECT_EQ(urlsOf(items), (QList<QUrl>{application, other})) << "a new item goes to the top";

    const auto list = items.createSessionLoginItems();
    list->remove(*list->copySnapshot().constFirst());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{other}) << "only the removed item goes";
    EXPECT_EQ(list->copySnapshot().size(), 1) << "a snapshot is taken afresh each time";

    items.createSessionLoginItems()->insertBeforeFirst(application);
    EXPECT_EQ(urlsOf(items), (QList<QUrl>{application, other})) << "and it can come back";
}

} // namespace tarnwick
