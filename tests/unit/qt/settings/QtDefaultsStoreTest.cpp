// SPDX-License-Identifier: MIT
#include "platform/qt/settings/QtDefaultsStore.h"

#include "foundation/UserDefaults.h"
#include "tests/FairTimer.h"
#include "tests/fakes/SharedPorts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr uid_t SomebodyElse = 65534;
const QByteArray OldContents = "[General]\nFontSizeSmall=12\n";

QString text(const DefaultsStore& store, const QString& key)
{
    return store.value(key).value_or(u"(nothing)"_s).toString();
}

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

    [[nodiscard]] QStringList files() const
    {
        return QDir(QFileInfo(path()).path()).entryList(QDir::Files | QDir::Hidden);
    }

    /// What is set is there for the life of the store, and nothing is told of its not being written.
    void expectKeptInMemoryOnly() const
    {
        const QStringList before = files();
        ::testing::internal::CaptureStderr();
        {
            QtDefaultsStore store(path());
            store.setValue(u"FontSizeSmall"_s, 13);
            store.synchronize();
            EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"13"_s);
            store.removeValue(u"FontSizeSmall"_s);
            EXPECT_FALSE(store.value(u"FontSizeSmall"_s));
        }
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(files(), before);
    }

    QTemporaryDir _folder;
};

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

TEST_F(QtDefaultsStoreTest, textThatIsJson_staysAText)
{
    for (const QString& json : {u"{"_s, u"{\"keyCode\":6}"_s, u"[1,2]"_s}) {
        QtDefaultsStore store(path());
        store.setValue(u"NewTrigger"_s, json);
        store.synchronize();
        EXPECT_EQ(store.value(u"NewTrigger"_s), QVariant(json));
        EXPECT_EQ(QtDefaultsStore(path()).value(u"NewTrigger"_s), QVariant(json));
    }
}

TEST_F(QtDefaultsStoreTest, dictionaryOfTheSettings_isJsonText)
{
    QtDefaultsStore store(path());
    const SharedPorts sharedPorts(store);
    UserDefaults().setObjectForKey(QVariantMap{{u"keyCode"_s, 6}}, u"ShortcutRecorder trigger"_s);
    store.synchronize();
    EXPECT_TRUE(contents().contains(R"("{\"keyCode\":6}")")) << contents().toStdString();
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

TEST_F(QtDefaultsStoreTest, keysOfAnyName_areStillThereAfterAWrite)
{
    const ValueRow rows[] = {
        {"[General]\na%2F=1", u"a/"_s},
        {"[General]\n%2Fb=1", u"/b"_s},
        {"[General]\nGeneral%2Fc=1", u"General/c"_s},
        {"[]\nd=1", u"/d"_s},
        {"[x/y]\ne=1", u"x/y/e"_s},
        {"[x]\n%EF%BB%BFf=1", u"x/\uFEFFf"_s},
        {"[general]\nG=1", u"G"_s},
    };
    for (const ValueRow& row : rows) {
        SCOPED_TRACE(row.line.toStdString());
        write(row.line + "\n[General]\nFirstRun=false\n");
        QtDefaultsStore store(path());
        EXPECT_EQ(text(store, row.value), u"1"_s);
        store.setValue(u"FirstRun"_s, true);
        store.synchronize();
        EXPECT_EQ(text(QtDefaultsStore(path()), row.value), u"1"_s) << contents().toStdString();
    }
}

TEST_F(QtDefaultsStoreTest, valuesOfAnyCharacters_areStillThereAfterAWrite)
{
    const ValueRow rows[] = {
        {"Key=\xEF\xBB\xBF mark", u"\uFEFF mark"_s}, // no byte-order mark, in the middle of a file
        {"Key=\\xfeff mark", u"\uFEFF mark"_s},
        {"Key=\\xd83d\\xde00", u"\U0001F600"_s}, // as other programs write it
        {"Key=\\x1f600", u"\U0001F600"_s},
        {"Key=\\xd83d!", u"?!"_s}, // half of a character
        {"Key=\xff", u"\uFFFD"_s},
        {"Key=\\x0\\x7f", QString(QChar(0)) + QChar(0x7F)},
    };
    for (const ValueRow& row : rows) {
        SCOPED_TRACE(row.line.toStdString());
        write("[General]\n" + row.line + "\n");
        QtDefaultsStore store(path());
        EXPECT_EQ(text(store, u"Key"_s), row.value);
        store.setValue(u"FirstRun"_s, true);
        store.synchronize();
        EXPECT_EQ(text(QtDefaultsStore(path()), u"Key"_s), row.value) << contents().toStdString();
    }
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

TEST_F(QtDefaultsStoreTest, symbolicLinks_areFollowedToTheEnd_alsoToAFileThatIsNotThereYet)
{
    const QString target = _folder.filePath(u"dotfiles/tarnwick.conf"_s);
    const QString middle = _folder.filePath(u"middle"_s);
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_TRUE(QFile::link(target, middle));
    ASSERT_TRUE(QFile::link(middle, path()));
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_TRUE(QFileInfo(middle).isSymLink());
    EXPECT_FALSE(QFileInfo(target).isSymLink());
    EXPECT_EQ(mode(target), 0600U);
    EXPECT_EQ(text(QtDefaultsStore(path()), u"FontSizeSmall"_s), u"13"_s);
}

TEST_F(QtDefaultsStoreTest, linksInACircle_areLeftAlone)
{
    const QString other = _folder.filePath(u"other"_s);
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_TRUE(QFile::link(path(), other));
    ASSERT_TRUE(QFile::link(other, path()));
    expectKeptInMemoryOnly();
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(QtDefaultsStoreTest, fileThatIsReadOnly_isLeftAsItIs)
{
    write(OldContents);
    QFile::setPermissions(path(), QFile::ReadOwner);
    expectKeptInMemoryOnly();
    EXPECT_EQ(contents(), OldContents);
    EXPECT_EQ(mode(path()), 0400U);
}

TEST_F(QtDefaultsStoreTest, fileOfSomebodyElse_isLeftAsItIs)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to somebody else";
    write(OldContents);
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0604), 0);
    ASSERT_EQ(::chown(path().toUtf8().constData(), SomebodyElse, SomebodyElse), 0);
    expectKeptInMemoryOnly();
    EXPECT_EQ(contents(), OldContents);
    EXPECT_EQ(mode(path()), 0604U) << "nor are the rights at it ours to change";
    EXPECT_EQ(QFileInfo(path()).ownerId(), SomebodyElse);
}

TEST_F(QtDefaultsStoreTest, folderThatMayNotBeWrittenTo_staysAsItIs)
{
    write(OldContents);
    const QByteArray folder = QFileInfo(path()).path().toUtf8();
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0644), 0);
    ASSERT_EQ(::chmod(_folder.path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(folder.constData(), 0555), 0);
    const bool root = ::geteuid() == 0; // who may write everywhere
    ASSERT_EQ(::chown(path().toUtf8().constData(), root ? SomebodyElse : ::geteuid(), ::getegid()), 0);
    ASSERT_EQ(::seteuid(root ? SomebodyElse : ::geteuid()), 0);
    expectKeptInMemoryOnly();
    ASSERT_EQ(::seteuid(::getuid()), 0);
    ::chmod(folder.constData(), 0755);
    EXPECT_EQ(contents(), OldContents);
}

TEST_F(QtDefaultsStoreTest, fileThatIsTooLarge_isLeftAsItIs)
{
    const QByteArray large = OldContents + "X=" + QByteArray(5 * 1024 * 1024, 'x') + "\n";
    write(large);
    expectKeptInMemoryOnly();
    EXPECT_EQ(contents(), large);
}

TEST_F(QtDefaultsStoreTest, pipeInThePlaceOfTheFile_isNotWaitedFor)
{
    QDir().mkpath(QFileInfo(path()).path());
    ASSERT_EQ(::mkfifo(path().toUtf8().constData(), 0600), 0);
    expectKeptInMemoryOnly();
    struct stat status = {};
    ASSERT_EQ(::stat(path().toUtf8().constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

/// No file of this process gets longer than so many bytes, as on a disk without room.
class NoRoom
{
public:
    explicit NoRoom(rlim_t bytes) : _handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limited{bytes, _before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~NoRoom()
    {
        ::setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handler);
    }
    Q_DISABLE_COPY_MOVE(NoRoom)

private:
    rlimit _before = {};
    void (*_handler)(int);
};

TEST_F(QtDefaultsStoreTest, withoutRoom_theFileStaysWhole_andIsWrittenOnceThereIsRoom)
{
    write(OldContents);
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    {
        const NoRoom limit(10); // a few bytes of the new file fit
        store.synchronize();
    }
    EXPECT_EQ(contents(), OldContents);
    EXPECT_EQ(files(), QStringList{u"Tarnwick.conf"_s});
    EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"13"_s);
    store.synchronize();
    EXPECT_EQ(text(QtDefaultsStore(path()), u"FontSizeSmall"_s), u"13"_s);
}

TEST_F(QtDefaultsStoreTest, whatAKilledWriterHasLeft_isWrittenOver)
{
    write(OldContents);
    QFile left(path() + u".new"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    left.write("[Gen");
    left.close();
    QtDefaultsStore store(path());
    EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"12"_s);
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_EQ(text(QtDefaultsStore(path()), u"FontSizeSmall"_s), u"13"_s);
    EXPECT_EQ(files(), QStringList{u"Tarnwick.conf"_s});
}

TEST_F(QtDefaultsStoreTest, programThatHangsWhileItWrites_holdsNobodyUp_andIsWaitedForLater)
{
    write(OldContents);
    const int folder =
        ::open(QFileInfo(path()).path().toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(::flock(folder, LOCK_EX), 0);
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    FairTimer time;
    time.start();
    QCoreApplication::processEvents();
    store.synchronize();
    EXPECT_LT(time.fairElapsed(), 600);
    EXPECT_EQ(text(store, u"FontSizeSmall"_s), u"13"_s);
    EXPECT_EQ(contents(), OldContents);
    ::close(folder);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return text(QtDefaultsStore(path()), u"FontSizeSmall"_s) == u"13"_s; }, 10'000));
}

TEST_F(QtDefaultsStoreTest, changes_areWrittenFromTheEventLoop)
{
    QtDefaultsStore store(path());
    store.setValue(u"FontSizeSmall"_s, 13);
    EXPECT_FALSE(QFile::exists(path())) << "several changes are written at once";
    EXPECT_TRUE(QTest::qWaitFor([this] { return QFile::exists(path()); }, 10'000));
    store.removeValue(u"FontSizeSmall"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return contents().isEmpty(); }, 10'000));
}

TEST_F(QtDefaultsStoreTest, writing_leavesNoOtherFile)
{
    {
        QtDefaultsStore store(path());
        store.setValue(u"FontSizeSmall"_s, 13);
    }
    EXPECT_EQ(files(), QStringList{u"Tarnwick.conf"_s});
}

} // namespace
