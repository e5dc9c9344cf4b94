// SPDX-License-Identifier: MIT
// What a recorder's cell keeps, in the settings and in archives.
#include "shortcut/Archive.h"
#include "tests/unit/shortcut/RecorderCellFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace tarnwick;
using namespace tarnwick::recorder;
using namespace Qt::StringLiterals;

// Settings

TEST_F(SRRecorderCellTest, save_writesWhatWasRecorded)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Control | Command, 7});
    EXPECT_EQ(saved(),
              (QVariantMap{{u"keyCode"_s, 7}, {u"modifierFlags"_s, 0x140000}, {u"modifiers"_s, 0x1100}}));
    startRecording();
    cell.performKeyEquivalent(f5(Shift));
    const QString f5Character{QChar(0xF708)};
    EXPECT_EQ(saved(), (QVariantMap{{u"keyCode"_s, 96},
                                    {u"modifierFlags"_s, 0x820000},
                                    {u"modifiers"_s, 0x800200},
                                    {u"keyChars"_s, f5Character},
                                    {u"keyCharsIgnoringModifiers"_s, f5Character}}));
    EXPECT_EQ(store.written.last(), u"ShortcutRecorder Test"_s);
}

TEST_F(SRRecorderCellTest, save_withoutAName_writesNothing)
{
    cell.setKeyCombo({Command, 7});
    cell.setAutosaveName(u""_s);
    cell.setKeyCombo({Command, 8});
    EXPECT_TRUE(store.written.isEmpty());
}

namespace {

struct StoredRow
{
    const char* name;
    QVariant stored;
    KeyCombo loaded;
    std::optional<QString> keyChars;
};

} // namespace

TEST_F(SRRecorderCellTest, load_takesWhatIsThere_andIsNeutralAboutTheRest)
{
    const QList<StoredRow> rows{
        {"all of it",
         u"{\"keyCode\":7,\"modifierFlags\":1310720,\"modifiers\":512,\"keyChars\":\"q\","
         "\"keyCharsIgnoringModifiers\":\"Q\"}"_s,
         {0x140000, 7},
         u"q"_s},
        {"without characters", u"{\"keyCode\":7,\"modifierFlags\":1310720}"_s, {0x140000, 7}, u"X"_s},
        {"old flags only", u"{\"keyCode\":7,\"modifiers\":4352}"_s, {0x140000, 7}, u"X"_s},
        {"no flags", u"{\"keyCode\":7}"_s, {0, 7}, u"X"_s},
        {"flags with foreign bits", u"{\"keyCode\":7,\"modifierFlags\":4294967295}"_s, {0x9E0000, 7}, u"X"_s},
        {"a code with too many bits",
         u"{\"keyCode\":65543,\"modifierFlags\":1048576}"_s,
         {Command, 7},
         u"X"_s},
        {"a negative code", u"{\"keyCode\":-1,\"modifierFlags\":0}"_s, {0, -1}, std::nullopt},
        {"an empty dictionary", u"{}"_s, {0, 0}, u"A"_s},
        {"nothing", QVariant(), {0, 0}, u"A"_s},
        {"texts for numbers", u"{\"keyCode\":\"7\",\"modifierFlags\":\"1048576\"}"_s, {0, 0}, u"A"_s},
        {"a number for the characters",
         u"{\"keyCode\":7,\"modifierFlags\":1048576,\"keyChars\":3}"_s,
         {Command, 7},
         u"X"_s},
        {"a text that is no dictionary", u"hello"_s, {0, 0}, u"A"_s},
        {"a list", u"[1,2]"_s, {0, 0}, u"A"_s},
        {"cut off", u"{\"keyCode\":7,\"modif"_s, {0, 0}, u"A"_s},
        {"a number", 17, {0, 0}, u"A"_s},
    };
    SRRecorderCell named;
    named.setAutosaveName(u"Test"_s);
    Archive archive(Archive::Form::Keyed);
    named.encodeWithCoder(archive);
    // The archive allows the function-key bit only; the row is about the stored flags.
    archive.encode(qint64(Everything), u"allowedFlags");
    for (const StoredRow& row : rows) {
        SCOPED_TRACE(row.name);
        store.values.clear();
        if (row.stored.isValid())
            store.values[u"ShortcutRecorder Test"_s] = row.stored;
        SRRecorderCell loaded(archive);
        EXPECT_EQ(loaded.keyCombo(), row.loaded);
        EXPECT_EQ(loaded.keyChars(), row.keyChars);
    }
}

TEST_F(SRRecorderCellTest, load_withNothingStored_countsAsEmpty_unlessAKeyAloneIsAllowed)
{
    cell.setAutosaveName(u"Test"_s);
    for (const bool keyOnly : {false, true}) {
        cell.setAllowsKeyOnlyEscapeKeysRecord(keyOnly, false);
        Archive archive(Archive::Form::Keyed);
        cell.encodeWithCoder(archive);
        const SRRecorderCell loaded(archive);
        EXPECT_EQ(loaded.keyCombo(), (KeyCombo{0, 0}));
        EXPECT_EQ(loaded.isEmpty(), !keyOnly);
    }
}

TEST_F(SRRecorderCellTest, load_filtersByAllowedAndRequiredFlags)
{
    store.values[u"ShortcutRecorder Test"_s] = u"{\"keyCode\":7,\"modifierFlags\":1310720}"_s;
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command);
    cell.setRequiredFlags(Shift);
    Archive archive(Archive::Form::Keyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(SRRecorderCell(archive).keyCombo(), (KeyCombo{Command | Shift, 7}));
}

// Archives

TEST_F(SRRecorderCellTest, keyedArchive_isAMapOfTheseKeys)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Shift);
    cell.setRequiredFlags(Shift);
    cell.setAllowsKeyOnlyEscapeKeysRecord(true, true);
    cell.setAnimates(true);
    cell.setStyle(1);
    cell.setKeyCombo({Command, 6});
    Archive archive(Archive::Form::Keyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(QCborValue::fromCbor(archive.data()).toMap(), (QCborMap{{u"autosaveName"_s, u"Test"_s},
                                                                      {u"keyComboCode"_s, 6},
                                                                      {u"keyComboFlags"_s, 0x120000},
                                                                      {u"allowedFlags"_s, 0x120000},
                                                                      {u"requiredFlags"_s, 0x20000},
                                                                      {u"allowsKeyOnly"_s, true},
                                                                      {u"escapeKeysRecord"_s, true},
                                                                      {u"isAnimating"_s, true},
                                                                      {u"style"_s, 1}}));
}

TEST_F(SRRecorderCellTest, unkeyedArchive_isAnArrayInThisOrder)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setAllowedFlags(Command | Shift);
    cell.setRequiredFlags(Shift);
    cell.setKeyCombo({Command, -1});
    Archive archive(Archive::Form::Unkeyed);
    cell.encodeWithCoder(archive);
    EXPECT_EQ(QCborValue::fromCbor(archive.data()).toArray(),
              (QCborArray{u"Test"_s, -1, 0x120000, 0x120000, 0x20000}));
}

TEST_F(SRRecorderCellTest, archives_giveTheCellBack_andAllowTheFunctionKeyBit)
{
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        const bool keyed = form == Archive::Form::Keyed;
        SCOPED_TRACE(keyed ? "keyed" : "unkeyed");
        SRRecorderCell before;
        before.setAllowedFlags(Command | Shift);
        before.setRequiredFlags(Shift);
        before.setAllowsKeyOnlyEscapeKeysRecord(true, true);
        before.setAnimates(true);
        before.setStyle(1);
        startRecording(before);
        before.performKeyEquivalent(letterA(Command));
        Archive archive(form);
        before.encodeWithCoder(archive);

        Archive read = Archive::fromData(archive.data());
        const SRRecorderCell after(read);
        EXPECT_EQ(after.keyCombo(), (KeyCombo{Command | Shift, 0}));
        EXPECT_EQ(after.allowedFlags(), Command | Shift | Function);
        EXPECT_EQ(after.requiredFlags(), Shift);
        EXPECT_TRUE(after.autosaveName().isEmpty());
        EXPECT_EQ(after.keyChars(), keyed ? u"a"_s : u"A"_s);
        EXPECT_EQ(after.allowsKeyOnly(), keyed);
        EXPECT_EQ(after.escapeKeysRecord(), keyed);
        EXPECT_EQ(after.animates(), keyed);
        EXPECT_EQ(after.style(), keyed ? 1 : 0);
        EXPECT_FALSE(after.isRecording());
        EXPECT_EQ(after.delegate(), nullptr);
    }
}

TEST_F(SRRecorderCellTest, archivedName_isMissingOrEmpty_asItWas)
{
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        for (const QString& name : {QString(), u""_s}) {
            cell.setAutosaveName(name);
            Archive archive(form);
            cell.encodeWithCoder(archive);
            Archive read = Archive::fromData(archive.data());
            EXPECT_EQ(SRRecorderCell(read).autosaveName().isNull(), name.isNull());
        }
    }
}

TEST_F(SRRecorderCellTest, storedCombination_winsOverTheArchivedOne)
{
    cell.setAutosaveName(u"Test"_s);
    cell.setKeyCombo({Command, 6});
    for (const Archive::Form form : {Archive::Form::Keyed, Archive::Form::Unkeyed}) {
        Archive archive(form);
        cell.encodeWithCoder(archive);
        store.values[u"ShortcutRecorder Test"_s] = u"{\"keyCode\":8,\"modifierFlags\":524288}"_s;
        EXPECT_EQ(SRRecorderCell(archive).keyCombo(), (KeyCombo{Option, 8}));
    }
}

TEST_F(SRRecorderCellTest, badArchives_giveNeutralCells)
{
    const QByteArray keyed = QCborValue(QCborMap{{u"autosaveName"_s, 5},
                                                 {u"keyComboCode"_s, u"six"_s},
                                                 {u"keyComboFlags"_s, QCborArray{1}},
                                                 {u"allowedFlags"_s, true},
                                                 {u"requiredFlags"_s, u"all"_s},
                                                 {u"keyChars"_s, 7},
                                                 {u"allowsKeyOnly"_s, u"yes"_s},
                                                 {u"style"_s, 9}})
                                 .toCbor();
    const QList<std::pair<const char*, QByteArray>> rows{
        {"wrong types", keyed},
        {"cut off", keyed.left(keyed.size() / 2)},
        {"empty", {}},
        {"no archive", "\xFF\xFE garbage"},
        {"a number", QCborValue(17).toCbor()},
        {"an empty array", QCborValue(QCborArray()).toCbor()},
        {"an array of wrong types", QCborValue(QCborArray{1, u"x"_s, false, QCborMap()}).toCbor()},
        {"a short array", QCborValue(QCborArray{QCborValue()}).toCbor()},
        {"numbers out of range",
         QCborValue(QCborMap{{u"keyComboCode"_s, 1e300}, {u"keyComboFlags"_s, -1e300}, {u"style"_s, qQNaN()}})
             .toCbor()},
        {"a row of fractions", QCborValue(QCborArray{QCborValue(), 6.5, 1e300}).toCbor()},
    };
    for (const auto& [name, data] : rows) {
        SCOPED_TRACE(name);
        Archive archive = Archive::fromData(data);
        const SRRecorderCell decoded(archive);
        EXPECT_EQ(decoded.keyCombo(), (KeyCombo{0, 0}));
        EXPECT_EQ(decoded.allowedFlags(), Function);
        EXPECT_EQ(decoded.requiredFlags(), 0U);
        EXPECT_TRUE(decoded.autosaveName().isEmpty());
        EXPECT_FALSE(decoded.allowsKeyOnly());
        EXPECT_EQ(decoded.style(), 0);
        EXPECT_TRUE(decoded.isEmpty());
    }
}
