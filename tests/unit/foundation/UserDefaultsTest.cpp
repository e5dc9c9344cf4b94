// SPDX-License-Identifier: MIT
#include "foundation/UserDefaults.h"

#include "foundation/UserDefaultsController.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/SharedPorts.h"

#include <QLocale>
#include <QStringList>
#include <gtest/gtest.h>

#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QString Flag = u"Flag"_s;
const QString Number = u"Number"_s;
const QString Code = u"Code"_s;
const QString Text = u"Text"_s;
const QString Other = u"Other"_s;
constexpr quint64 MinusOne = std::numeric_limits<quint64>::max();

DefaultsTable table()
{
    return {{Text, u"default"_s}, {Flag, true}, {Number, 11}, {Code, quint64(25)}};
}

class UserDefaultsTest : public ::testing::Test
{
protected:
    UserDefaultsTest() { defaults.registerDefaults(table()); }

    FakeDefaultsStore store;
    SharedPorts sharedPorts{store};
    UserDefaults defaults;
};

struct Row
{
    const char* sentence;
    QString key;
    QVariant stored;
    QVariant read;
};

TEST_F(UserDefaultsTest, storedValue_isReadInTheTypeOfItsDefault_orAsTheDefault)
{
    const Row rows[] = {
        {"a text is a text", Text, u"⌘X"_s, u"⌘X"_s},
        {"an empty text is a text", Text, u""_s, u""_s},
        {"a number is no text", Text, 5, u"default"_s},
        {"a list is no text", Text, QStringList{u"a"_s, u"b"_s}, u"default"_s},
        {"a boolean is a boolean", Flag, false, false},
        {"a boolean as text", Flag, u"false"_s, false},
        {"a boolean as another text", Flag, u"NO"_s, false},
        {"a boolean as 0", Flag, 0, false},
        {"a boolean as 1", Flag, u"1"_s, true},
        {"2 is no boolean", Flag, 2, true},
        {"garbage is no boolean", Flag, u"nope"_s, true},
        {"nothing is no boolean", Flag, u""_s, true},
        {"a list is no boolean", Flag, QStringList{u"0"_s}, true},
        {"a number is a number", Number, 200, 200},
        {"a number as text", Number, u"200"_s, 200},
        {"a negative number as text", Number, u"-3"_s, -3},
        {"the largest number", Number, u"2147483647"_s, 2147483647},
        {"one more than the largest number", Number, u"2147483648"_s, 11},
        {"one less than the smallest number", Number, qint64(-2147483649), 11},
        {"a fraction is no number", Number, 12.5, 11},
        {"a fraction as text is no number", Number, u"12.5"_s, 11},
        {"a boolean is no number", Number, true, 11},
        {"a hexadecimal text is no number", Code, u"0x19"_s, quint64(25)},
        {"grouped digits are no number", Number, u"1,000"_s, 11},
        {"a code is a code", Code, quint64(7), quint64(7)},
        {"a code as text", Code, u"524288"_s, quint64(524288)},
        {"a code of another integer type", Code, 26, quint64(26)},
        {"the largest code as text", Code, u"18446744073709551615"_s, MinusOne},
        {"the largest code from a store of signed numbers", Code, qint64(-1), MinusOne},
        {"one more than the largest code", Code, u"18446744073709551616"_s, quint64(25)},
        {"garbage is no code", Code, u"Z"_s, quint64(25)},
        {"a dictionary is no code", Code, QVariantMap{{u"a"_s, 1}}, quint64(25)},
        {"a key that is not registered reads as stored", Other, u"12"_s, u"12"_s},
        {"a key that is not registered keeps its type", Other, 12, 12},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        store.values[row.key] = row.stored;
        const QVariant value = defaults.objectForKey(row.key);
        EXPECT_EQ(value, row.read) << qPrintable(value.toString());
        EXPECT_EQ(value.typeId(), row.read.typeId());
    }
}

TEST_F(UserDefaultsTest, numbersAreWrittenAndReadAlike_inALocaleWithADecimalComma)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    store.readsTexts = true;
    defaults.setObjectForKey(1234567, Number);
    EXPECT_EQ(store.value(Number), QVariant(u"1234567"_s));
    EXPECT_EQ(defaults.intForKey(Number), 1234567);
    store.values[Number] = u"1.234"_s;
    EXPECT_EQ(defaults.intForKey(Number), 11) << "no grouping by anybody's habits";
    QLocale::setDefault(before);
}

TEST_F(UserDefaultsTest, missingKey_readsAsItsDefault_orAsNothingWithoutOne)
{
    EXPECT_EQ(defaults.objectForKey(Text), QVariant(u"default"_s));
    EXPECT_TRUE(defaults.boolForKey(Flag));
    EXPECT_EQ(defaults.intForKey(Number), 11);
    EXPECT_EQ(defaults.unsignedForKey(Code), 25U);

    EXPECT_FALSE(defaults.objectForKey(Other).isValid());
    EXPECT_FALSE(defaults.boolForKey(Other));
    EXPECT_EQ(defaults.intForKey(Other), 0);
    EXPECT_EQ(defaults.unsignedForKey(Other), 0U);
    EXPECT_FALSE(defaults.dictionaryForKey(Other).has_value());
}

TEST_F(UserDefaultsTest, unreadableValue_leavesTheOtherRowsAlone)
{
    store.values[Number] = u"many"_s;
    store.values[Code] = quint64(7);
    EXPECT_EQ(defaults.intForKey(Number), 11);
    EXPECT_EQ(defaults.unsignedForKey(Code), 7U);
}

TEST_F(UserDefaultsTest, registeringAgain_replacesTheDefaultsOfTheseKeysOnly)
{
    defaults.registerDefaults({{Number, 12}});
    EXPECT_EQ(defaults.intForKey(Number), 12);
    EXPECT_EQ(defaults.unsignedForKey(Code), 25U);
}

TEST_F(UserDefaultsTest, readers_ofKeysThatAreNotRegistered_understandTexts)
{
    store.readsTexts = true;
    defaults.setBoolForKey(true, Other);
    EXPECT_EQ(defaults.objectForKey(Other), QVariant(u"true"_s));
    EXPECT_TRUE(defaults.boolForKey(Other));
    defaults.setObjectForKey(-5, Other);
    EXPECT_EQ(defaults.intForKey(Other), -5);
    EXPECT_FALSE(defaults.boolForKey(Other));
    defaults.setObjectForKey(u"five"_s, Other);
    EXPECT_EQ(defaults.intForKey(Other), 0);
}

TEST_F(UserDefaultsTest, keyCodeOfMinusOne_survivesTheStoreAndARestart)
{
    for (const bool texts : {false, true}) {
        store.readsTexts = texts;
        defaults.setObjectForKey(static_cast<quint64>(-1), Code);
        UserDefaults afterRestart;
        afterRestart.registerDefaults(table());
        EXPECT_EQ(afterRestart.unsignedForKey(Code), MinusOne);
        EXPECT_EQ(afterRestart.intForKey(Code), -1);
    }
}

TEST_F(UserDefaultsTest, writingNothing_removesTheKey)
{
    defaults.setObjectForKey(99, Number);
    EXPECT_EQ(defaults.intForKey(Number), 99);
    defaults.setObjectForKey({}, Number);
    EXPECT_FALSE(store.values.contains(Number));
    EXPECT_EQ(defaults.intForKey(Number), 11);
}

TEST_F(UserDefaultsTest, everyWriteNotifies_evenOfAnEqualValue)
{
    QStringList changed;
    auto observer = defaults.addObserver([&](const QString& key) { changed << key; });
    defaults.setBoolForKey(true, Flag);
    defaults.setBoolForKey(true, Flag);
    defaults.setObjectForKey({}, Other);
    EXPECT_EQ(changed, (QStringList{Flag, Flag, Other}));
    observer.reset();
    defaults.setBoolForKey(true, Flag);
    EXPECT_EQ(changed.size(), 3);
}

TEST_F(UserDefaultsTest, observer_readsTheNewValue)
{
    int read = 0;
    const auto observer = defaults.addObserver([&](const QString& key) { read = defaults.intForKey(key); });
    defaults.setObjectForKey(14, Number);
    EXPECT_EQ(read, 14);
}

TEST_F(UserDefaultsTest, storing_tellsNobodyUntilDidChange)
{
    QStringList changed;
    const auto observer = defaults.addObserver([&](const QString& key) { changed << key; });
    defaults.storeObjectForKey(14, Number);
    EXPECT_TRUE(changed.isEmpty());
    EXPECT_EQ(defaults.intForKey(Number), 14);
    defaults.didChange(Number);
    EXPECT_EQ(changed, QStringList{Number});
}

TEST_F(UserDefaultsTest, dictionary_isStoredAsText_andReadBack)
{
    const QVariantMap combo{{u"keyCode"_s, -1}, {u"modifierFlags"_s, 0x9E0000}, {u"keyChars"_s, u"\uF704"_s}};
    defaults.setObjectForKey(combo, Other);
    EXPECT_EQ(store.values[Other].typeId(), QMetaType::QString);

    const auto read = defaults.dictionaryForKey(Other);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->value(u"keyCode"_s).toInt(), -1);
    EXPECT_EQ(read->value(u"modifierFlags"_s).toUInt(), 0x9E0000U);
    EXPECT_EQ(read->value(u"keyChars"_s), QVariant(u"\uF704"_s));

    for (const QVariant& garbage : {QVariant(u"{"_s), QVariant(u"[1]"_s), QVariant(7)}) {
        store.values[Other] = garbage;
        EXPECT_FALSE(defaults.dictionaryForKey(Other).has_value());
    }
}

class UserDefaultsControllerTest : public UserDefaultsTest
{
protected:
    UserDefaultsControllerTest()
    {
        controller.setInitialValues(table());
        for (const auto& [key, value] : table())
            observers.push_back(controller.addObserverForKeyPath(
                u"values."_s + key, [this](const QString& path) { changed << path; }));
    }

    UserDefaultsController controller{defaults};
    QStringList changed;
    std::vector<std::unique_ptr<UserDefaultsController::Observer>> observers;
};

TEST_F(UserDefaultsControllerTest, observer_seesChangesOfExactlyItsKeyPath_howeverMade)
{
    defaults.setObjectForKey(1, Number);
    controller.setValueForKeyPath(2, u"values.Number"_s);
    defaults.setObjectForKey(3, u"NumberTwo"_s);
    defaults.setObjectForKey(3, u"number"_s);
    EXPECT_EQ(changed, (QStringList{u"values.Number"_s, u"values.Number"_s}));
    EXPECT_EQ(defaults.intForKey(Number), 2);
    observers.clear();
    defaults.setObjectForKey(1, Number);
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(UserDefaultsControllerTest, keyPath_thatDoesNotBeginWithValues_isNothing)
{
    controller.setValueForKeyPath(2, u"Number"_s);
    controller.setValueForKeyPath(2, u"values."_s);
    EXPECT_TRUE(store.written.isEmpty());
    EXPECT_FALSE(controller.valueForKeyPath(u"Number"_s).isValid());
    EXPECT_EQ(controller.valueForKeyPath(u"values.Number"_s), QVariant(11));
}

TEST_F(UserDefaultsControllerTest, settingAnInvalidValue_removesTheKey)
{
    controller.setValueForKeyPath(2, u"values.Number"_s);
    controller.setValueForKeyPath({}, u"values.Number"_s);
    EXPECT_FALSE(store.values.contains(Number));
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(UserDefaultsControllerTest, revert_storesAllRowsFirst_thenNotifiesInTableOrder_andTouchesOnlyThem)
{
    store.values = {{Text, u"mine"_s}, {Flag, false}, {Number, 200}, {Code, quint64(7)}, {Other, u"kept"_s}};
    bool allReverted = true;
    const auto watcher = defaults.addObserver([&](const QString&) {
        for (const auto& [key, value] : table())
            allReverted = allReverted && defaults.objectForKey(key) == value;
    });

    controller.revertToInitialValues(nullptr);

    EXPECT_TRUE(allReverted) << "a row was still to be stored when the first observer ran";
    EXPECT_EQ(changed,
              (QStringList{u"values.Text"_s, u"values.Flag"_s, u"values.Number"_s, u"values.Code"_s}));
    EXPECT_EQ(store.written, (QStringList{Text, Flag, Number, Code}));
    EXPECT_EQ(store.values[Other], QVariant(u"kept"_s));
}

TEST_F(UserDefaultsControllerTest, revert_notifiesOfRowsThatWereInitialAlready)
{
    controller.revertToInitialValues(nullptr);
    EXPECT_EQ(changed.size(), 4);
}

TEST_F(UserDefaultsControllerTest, sharedController_isOverTheStandardDefaults)
{
    auto& shared = UserDefaultsController::sharedUserDefaultsController();
    EXPECT_EQ(&shared, &UserDefaultsController::sharedUserDefaultsController());
    UserDefaults::standardUserDefaults().setObjectForKey(u"there"_s, Other);
    EXPECT_EQ(shared.valueForKeyPath(u"values.Other"_s), QVariant(u"there"_s));
}

} // namespace
