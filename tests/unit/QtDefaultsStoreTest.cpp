// SPDX-License-Identifier: MIT
#include "platform/qt/QtDefaultsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class QtDefaultsStoreTest : public ::testing::Test
{
protected:
    [[nodiscard]] QString path() const { return _folder.filePath(u"config/Quorlane/Tarnwick.conf"_s); }

    void write(const QByteArray& contents) const
    {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    [[nodiscard]] QByteArray contents() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] static unsigned mode(const QString& name)
    {
        struct stat status = {};
        return ::stat(name.toUtf8().constData(), &status) == 0 ? status.st_mode & 0777U : 0;
    }

    QTemporaryDir _folder;
};

QString text(const DefaultsStore& store, const QString& key)
{
    return store.value(key).value_or(u"(nothing)"_s).toString();
}

TEST_F(QtDefaultsStoreTest, keys_areLinesOfTheGeneralGroup_asTheTableNamesThem)
{
    QtDefaultsStore store(path());
    store.setValue(u"EnableHotkey"_s, true);
    store.setValue(u"TriggerCharacterUInt"_s, QVariant::fromValue<quint64>(~quint64(0)));
    store.setValue(u"TriggerModifiers"_s, QVariant::fromValue<quint64>(0x80000));
    store.setValue(u"FontSizeSmall"_s, 11);
    store.synchronize();
    const auto lines = contents().split('\n');
    EXPECT_EQ(lines.first(), "[General]");
    EXPECT_TRUE(lines.contains("EnableHotkey=true"));
    EXPECT_TRUE(lines.contains("TriggerCharacterUInt=18446744073709551615"));
    EXPECT_TRUE(lines.contains("TriggerModifiers=524288"));
    EXPECT_TRUE(lines.contains("FontSizeSmall=11"));
}

TEST_F(QtDefaultsStoreTest, dictionary_isJsonText)
{
    QtDefaultsStore store(path());
    store.setValue(u"ShortcutRecorder trigger"_s, QVariantMap{{u"keyCode"_s, 6}});
    store.synchronize();
    EXPECT_TRUE(contents().contains(R"("{\"keyCode\":6}")")) << contents().toStdString();
}

TEST_F(QtDefaultsStoreTest, textThatOnlyBeginsLikeJson_staysAText)
{
    QtDefaultsStore store(path());
    store.setValue(u"NewTrigger"_s, u"{"_s);
    EXPECT_EQ(text(store, u"NewTrigger"_s), u"{"_s);
}

TEST_F(QtDefaultsStoreTest, firstWrite_makesFolderAndFile_forTheUserOnly)
{
    const mode_t previous = ::umask(0);
    {
        QtDefaultsStore store(path());
        store.setValue(u"FirstRun"_s, true);
        store.synchronize();
    }
    ::umask(previous);
    EXPECT_EQ(mode(path()), 0600U);
    EXPECT_EQ(mode(QFileInfo(path()).path()), 0700U);
    EXPECT_EQ(mode(_folder.filePath(u"config"_s)), 0700U);
}

TEST_F(QtDefaultsStoreTest, fileThatOthersCouldRead_isMadePrivate)
{
    write("[General]\nFirstRun=true\n");
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther | QFile::ReadGroup);
    const QtDefaultsStore store(path());
    EXPECT_EQ(mode(path()), 0600U);
    EXPECT_EQ(text(store, u"FirstRun"_s), u"true"_s);
}

TEST_F(QtDefaultsStoreTest, reading_makesNothing)
{
    {
        QtDefaultsStore store(path());
        EXPECT_FALSE(store.value(u"FirstRun"_s));
        store.synchronize();
    }
    EXPECT_FALSE(QFile::exists(path()));
}

struct ValueRow
{
    QByteArray line;
    QString value;
};

TEST_F(QtDefaultsStoreTest, valuesWrittenByHand_areRead)
{
    const ValueRow rows[] = {
        {"Key=plain", u"plain"_s},
        {" Key =  blanks around ", u"blanks around"_s},
        {"Key=\" kept \"", u" kept "_s},
        {"Key=\xcb\x84Z", u"\u02C4Z"_s},
        {"Key=\\x2c4Z", u"\u02C4Z"_s},
        {"Key=a\\nb\\\\c\\\"d", u"a\nb\\c\"d"_s},
        {"Key=value ; a comment", u"value "_s},
        {"Key=\"a;b\"", u"a;b"_s},
        {"Key=", u""_s},
        {"%4bey=escaped key", u"escaped key"_s},
        {"Key=first\nKey=last", u"last"_s},
        {"# Key=comment", u"(nothing)"_s},
        {"; Key=comment", u"(nothing)"_s},
    };
    for (const ValueRow& row : rows) {
        write("[General]\n" + row.line + "\n");
        const QtDefaultsStore store(path());
        EXPECT_EQ(text(store, u"Key"_s), row.value) << row.line.toStdString();
    }
}

TEST_F(QtDefaultsStoreTest, otherGroups_areKept)
{
    write("[General]\nFirstRun=true\n\n[Some%20Group]\nKey=1\n");
    {
        QtDefaultsStore store(path());
        store.setValue(u"FirstRun"_s, false);
    }
    EXPECT_EQ(contents(), "[General]\nFirstRun=false\n\n[Some%20Group]\nKey=1\n");
}

struct GarbageRow
{
    const char* sentence;
    QByteArray contents;
    bool otherKept; ///< whether "FontSizeSmall=13" in it is still read
};

TEST_F(QtDefaultsStoreTest, garbage_readsAsNothing_andTheOtherSettingsAreKept)
{
    const GarbageRow rows[] = {
        {"no line is a setting", "\x00\xff\xfe garbage \n\n====\n[[[\n", false},
        {"a line without a value", "[General]\nEnableHotkey\nFontSizeSmall=13\n", true},
        {"a broken line before", "[General]\n\x01\x02\xff\nFontSizeSmall=13\n", true},
        {"a value of no known type", "[General]\nEnableHotkey=@Variant(garbage)\nFontSizeSmall=13\n", true},
        {"an object that would need all memory",
         "[General]\nFontSizeSmall=13\nEnableHotkey=@Variant(\\0\\0\\0\\t\\xff\\xff\\xff\\xff)\n", true},
        {"a value cut short", "[General]\nFontSizeSmall=13\nEnableHotkey=@Variant(\\0\\0\\0", true},
        {"an empty file", "", false},
        {"zero bytes", QByteArray(4096, '\0'), false},
        {"an escape of no character", "[General]\nFontSizeSmall=13\nEnableHotkey=\\xffffffff\\", true},
        {"a long line", "[General]\nFontSizeSmall=13\nX=" + QByteArray(1'000'000, 'x') + "\n", true},
    };
    for (const GarbageRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        write(row.contents);
        QtDefaultsStore store(path());
        EXPECT_NE(text(store, u"EnableHotkey"_s), u"true"_s);
        EXPECT_EQ(text(store, u"FontSizeSmall"_s), row.otherKept ? u"13"_s : u"(nothing)"_s);
        store.setValue(u"FirstRun"_s, true);
        store.synchronize();
        QtDefaultsStore again(path());
        EXPECT_EQ(text(again, u"FirstRun"_s), u"true"_s) << "and can be written again";
        EXPECT_EQ(text(again, u"FontSizeSmall"_s), row.otherKept ? u"13"_s : u"(nothing)"_s);
    }
}

TEST_F(QtDefaultsStoreTest, whatCannotBeWritten_staysReadable)
{
    // A file where the folder would be: nobody can write below it, whatever his rights are.
    QFile obstacle(_folder.filePath(u"config"_s));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"13"_s);
    store.removeValue(u"FontSizeSmall"_s);
    EXPECT_FALSE(store.value(u"FontSizeSmall"_s));
    EXPECT_TRUE(QFileInfo(_folder.filePath(u"config"_s)).isFile());
}

TEST_F(QtDefaultsStoreTest, directoryInThePlaceOfTheFile_isLeftAlone)
{
    QDir().mkpath(path());
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"13"_s);
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(QtDefaultsStoreTest, symbolicLink_staysOne)
{
    const QString target = _folder.filePath(u"dotfiles.conf"_s);
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_TRUE(QFile::link(target, path()));
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    const QtDefaultsStore direct(target);
    EXPECT_EQ(text(direct, u"FontSizeSmall"_s), u"13"_s);
}

TEST_F(QtDefaultsStoreTest, twoWriters_keepEachOthersKeys)
{
    QtDefaultsStore first(path());
    QtDefaultsStore second(path());
    first.setValue(u"FontSizeSmall"_s, 13);
    second.setValue(u"MouseButton"_s, 26);
    first.synchronize();
    second.synchronize();
    const QtDefaultsStore later(path());
    EXPECT_EQ(text(later, u"FontSizeSmall"_s), u"13"_s);
    EXPECT_EQ(text(later, u"MouseButton"_s), u"26"_s);
}

TEST_F(QtDefaultsStoreTest, writing_leavesNoOtherFile)
{
    {
        QtDefaultsStore store(path());
        store.setValue(u"FontSizeSmall"_s, 13);
    }
    EXPECT_EQ(QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{u"Tarnwick.conf"_s});
}

} // namespace
