// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/DefaultsStore.h"
#include "foundation/UserDefaults.h"

#include <QVariantMap>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

namespace tarnwick {

/// What the core relies on of a settings store: every type of setting comes back through UserDefaults as it
/// went in. `reopened` gives the store as the next start finds it.
inline void defaultsStoreContract(const std::function<std::unique_ptr<DefaultsStore>()>& reopened)
{
    using namespace Qt::StringLiterals;
    std::unique_ptr<DefaultsStore> store;
    const auto open = [&] {
        auto next = reopened();
        DefaultsStore::setShared(next.get());
        store = std::move(next);
    };
    open();
    EXPECT_FALSE(store->value(u"Absent"_s)) << "a missing key reads as nothing";
    EXPECT_FALSE(store->value({})) << "no key, no value";

    constexpr quint64 minusOne = std::numeric_limits<quint64>::max();
    const DefaultsTable settings{
        {u"Flag"_s, true},
        {u"Other flag"_s, false},
        {u"Number"_s, 11},
        {u"Negative number"_s, -56},
        {u"Code"_s, QVariant::fromValue(minusOne)},
        {u"Modifiers"_s, QVariant::fromValue<quint64>(0x80000)},
        {u"Text"_s, u"\u02C4Z, \"quoted\"; @ = \\ and more\n"_s},
        {u"Text like a dictionary"_s, u"{\"keyCode\":6}"_s},
        {u"Text like a list"_s, u"[1,2]"_s},
        {u"Text like a number"_s, u"1"_s},
        {u"Empty text"_s, u""_s},
    };
    const QVariantMap dictionary{{u"keyCode"_s, -1},
                                 {u"modifierFlags"_s, 0x9E0000},
                                 {u"keyChars"_s, u"\uF704"_s},
                                 {u"of its own"_s, QVariantMap{{u"keyCode"_s, 6}}}};
    // Of each setting the type is known, and that is all: its default is another value.
    UserDefaults defaults;
    for (const auto& [key, value] : settings)
        defaults.registerDefaults({{key, QVariant(value.metaType())}});
    for (const auto& [key, value] : settings)
        defaults.setObjectForKey(value, key);
    defaults.setBoolForKey(true, u"Not registered"_s);
    defaults.setObjectForKey(dictionary, u"ShortcutRecorder name"_s);
    defaults.setObjectForKey(QVariantMap(), u"ShortcutRecorder empty"_s);
    for (const bool restarted : {false, true}) {
        SCOPED_TRACE(restarted ? "after a restart" : "before a restart");
        if (restarted) {
            store->synchronize();
            open();
        }
        for (const auto& [key, value] : settings)
            EXPECT_EQ(defaults.objectForKey(key), value) << key.toStdString();
        EXPECT_TRUE(defaults.boolForKey(u"Not registered"_s));
        const auto read = defaults.dictionaryForKey(u"ShortcutRecorder name"_s);
        EXPECT_EQ(QVariant(read.value_or(QVariantMap())), QVariant(dictionary));
        EXPECT_EQ(defaults.dictionaryForKey(u"ShortcutRecorder empty"_s), QVariantMap());
        EXPECT_FALSE(defaults.dictionaryForKey(u"ShortcutRecorder none"_s));
    }

    store->setValue(u"Number"_s, 12);
    EXPECT_EQ(defaults.intForKey(u"Number"_s), 12) << "the last write wins";
    store->removeValue(u"Number"_s);
    store->removeValue(u"Never there"_s);
    EXPECT_FALSE(store->value(u"Number"_s)) << "a removed key reads as nothing";
    store->synchronize();
    open();
    EXPECT_FALSE(store->value(u"Number"_s)) << "and stays removed";
    EXPECT_TRUE(store->value(u"Flag"_s)) << "the others stay";
    DefaultsStore::setShared(nullptr);
}

} // namespace tarnwick
