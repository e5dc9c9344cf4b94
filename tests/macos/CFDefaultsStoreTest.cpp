// SPDX-License-Identifier: MIT
#include "platform/macos/system/CFDefaultsStore.h"

#include "foundation/UserDefaults.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/MacTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

class CFDefaultsStoreTest : public MacTest
{
protected:
    CFDefaultsStore store;
};

TEST_F(CFDefaultsStoreTest, values_goToTheDomainOfTheRunningApplication)
{
    store.setValue(u"EnableHotkey"_s, true);
    store.removeValue(u"NewTrigger"_s);
    (void)store.value(u"FontSizeSmall"_s);
    const QString domain = u"kCFPreferencesCurrentApplication"_s;
    EXPECT_EQ(
        mac.callsOf(u"CFPreferencesSetAppValue"_s),
        (QList<QVariantList>{{u"EnableHotkey"_s, true, domain}, {u"NewTrigger"_s, QVariant(), domain}}));
    EXPECT_EQ(mac.callsOf(u"CFPreferencesCopyAppValue"_s),
              (QList<QVariantList>{{u"FontSizeSmall"_s, domain}}));
}

TEST_F(CFDefaultsStoreTest, everyTypeOfTheSettings_survives)
{
    struct Row
    {
        const char* kind;
        QVariant value;
        QVariant readBack;
    };
    const Row rows[] = {
        {"boolean", true, true},
        {"text", u"˄Z"_s, u"˄Z"_s},
        {"int", 11, qint64(11)},
        {"negative int", -56, qint64(-56)},
        {"unsigned 64 bits", quint64(0x80000), qint64(0x80000)},
        {"no key, as it is stored", std::numeric_limits<quint64>::max(), qint64(-1)},
        {"floating point", 0.5, 0.5},
        {"dictionary", QVariantMap{{u"keyCode"_s, 6}, {u"keyChars"_s, u"z"_s}},
         QVariantMap{{u"keyCode"_s, qint64(6)}, {u"keyChars"_s, u"z"_s}}},
        {"list", QVariantList{u"a"_s, false}, QVariantList{u"a"_s, false}},
    };
    for (const Row& row : rows) {
        store.setValue(u"Tested"_s, row.value);
        EXPECT_EQ(store.value(u"Tested"_s), row.readBack) << row.kind;
    }
}

TEST_F(CFDefaultsStoreTest, absentOrRemovedKey_isNothing)
{
    EXPECT_FALSE(store.value(u"Tested"_s));
    store.setValue(u"Tested"_s, 1);
    store.removeValue(u"Tested"_s);
    EXPECT_FALSE(store.value(u"Tested"_s));
}

TEST_F(CFDefaultsStoreTest, emptyKeyAndValueOfAForeignType_areNotWritten)
{
    store.setValue(QString(), 1);
    store.removeValue(QString());
    store.setValue(u"Tested"_s, QVariant::fromValue(this));
    EXPECT_FALSE(store.value(QString()));
    EXPECT_TRUE(mac.calls().isEmpty());
}

TEST_F(CFDefaultsStoreTest, noKeyCode_survivesAsTheSettingReadsIt)
{
    const SharedPorts sharedPorts(store);
    UserDefaults defaults;
    defaults.registerDefaults({{u"TriggerCharacterUInt"_s, quint64(6)}});
    defaults.setObjectForKey(std::numeric_limits<quint64>::max(), u"TriggerCharacterUInt"_s);
    EXPECT_EQ(defaults.objectForKey(u"TriggerCharacterUInt"_s), std::numeric_limits<quint64>::max());
}

TEST_F(CFDefaultsStoreTest, endOfTheStore_writesTheDomainOut)
{
    std::make_unique<CFDefaultsStore>().reset();
    EXPECT_EQ(mac.callsOf(u"CFPreferencesAppSynchronize"_s).size(), 1);
}

TEST_F(CFDefaultsStoreTest, synchronize_writesTheDomainOut)
{
    store.synchronize();
    EXPECT_EQ(mac.callsOf(u"CFPreferencesAppSynchronize"_s),
              (QList<QVariantList>{{u"kCFPreferencesCurrentApplication"_s}}));
}

} // namespace tarnwick
