// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"

#include <QVariantMap>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

namespace tarnwick {

/// What the core relies on of a settings store. `reopened` gives the store as the next start finds it.
inline void defaultsStoreContract(const std::function<std::unique_ptr<DefaultsStore>()>& reopened)
{
    using namespace Qt::StringLiterals;
    auto store = reopened();
    EXPECT_FALSE(store->value(u"Absent"_s)) << "a missing key reads as nothing";
    EXPECT_FALSE(store->value({})) << "no key, no value";

    constexpr quint64 minusOne = std::numeric_limits<quint64>::max();
    store->setValue(u"Flag"_s, true);
    store->setValue(u"Number"_s, 11);
    store->setValue(u"Code"_s, QVariant::fromValue<quint64>(minusOne));
    store->setValue(u"Text"_s, u"\u02C4Z, \"quoted\"; @ = \\ and more\n"_s);
    store->setValue(u"Key with blanks"_s, u"v"_s);
    store->setValue(u"Dictionary"_s, QVariantMap{{u"keyCode"_s, 6}, {u"modifierFlags"_s, 0x80000}});
    for (const bool restarted : {false, true}) {
        SCOPED_TRACE(restarted ? "after a restart" : "before a restart");
        if (restarted) {
            store->synchronize();
            store = reopened();
        }
        EXPECT_TRUE(store->value(u"Flag"_s).value_or(false).toBool());
        EXPECT_EQ(store->value(u"Number"_s).value_or(0).toInt(), 11);
        EXPECT_EQ(store->value(u"Code"_s).value_or(0).toULongLong(), minusOne);
        EXPECT_EQ(store->value(u"Text"_s).value_or(QVariant()).toString(),
                  u"\u02C4Z, \"quoted\"; @ = \\ and more\n"_s);
        EXPECT_EQ(store->value(u"Key with blanks"_s).value_or(QVariant()).toString(), u"v"_s);
        const QVariantMap dictionary = store->value(u"Dictionary"_s).value_or(QVariant()).toMap();
        EXPECT_EQ(dictionary.value(u"keyCode"_s).toInt(), 6);
        EXPECT_EQ(dictionary.value(u"modifierFlags"_s).toInt(), 0x80000);
    }

    store->setValue(u"Number"_s, 12);
    EXPECT_EQ(store->value(u"Number"_s).value_or(0).toInt(), 12) << "the last write wins";
    store->removeValue(u"Number"_s);
    store->removeValue(u"Never there"_s);
    EXPECT_FALSE(store->value(u"Number"_s)) << "a removed key reads as nothing";
    store->synchronize();
    store = reopened();
    EXPECT_FALSE(store->value(u"Number"_s)) << "and stays removed";
    EXPECT_TRUE(store->value(u"Flag"_s)) << "the others stay";
}

} // namespace tarnwick
