// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/XdgLoginItems.h"

#include "platform/linux/xdg/DesktopEntry.h"
#include "tests/contract/prefs/LoginItemsContract.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <sys/stat.h>
#include <utility>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class XdgLoginItemsTest : public ::testing::Test
{
protected:
    XdgLoginItemsTest()
    {
        QFile::copy(u"/bin/true"_s, program());
        QFile::setPermissions(program(), QFile::ReadOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QString program() const { return _folder.filePath(u"my $tarnwick"_s); }
    [[nodiscard]] QUrl url() const { return QUrl::fromLocalFile(program()); }
    [[nodiscard]] QString user() const { return _folder.filePath(u"user"_s); }
    [[nodiscard]] QString system() const { return _folder.filePath(u"system"_s); }
    [[nodiscard]] QString ownEntry() const
    {
        return user() + u"/autostart/example.quorlane.Tarnwick.desktop"_s;
    }

    void write(const QString& configuration, const QString& name, const QByteArray& lines) const
    {
        QDir().mkpath(configuration + u"/autostart"_s);
        QFile file(configuration + u"/autostart/"_s + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + lines);
    }

    [[nodiscard]] QByteArray exec() const
    {
        return "Exec=" + DesktopEntry::execValue({program(), u"--login"_s}).toUtf8() + '\n';
    }

    QTemporaryDir _folder;
    XdgLoginItems items = XdgLoginItems(user(), {system()}, {u"GNOME"_s});
};

TEST_F(XdgLoginItemsTest, withoutAFolder_thereIsNoItem)
{
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
}

TEST_F(XdgLoginItemsTest, insertedEntry_isAValidEntryThatStartsTheProgram)
{
    items.createSessionLoginItems()->insertBeforeFirst(url());
    const auto entry = DesktopEntry::read(ownEntry());
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->string(u"Type"_s), u"Application"_s);
    EXPECT_EQ(entry->string(u"Name"_s), u"Tarnwick"_s);
    EXPECT_EQ(entry->command(), QStringList{program()});
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

TEST_F(XdgLoginItemsTest, insertedEntry_isForTheUserOnly)
{
    const mode_t previous = ::umask(0);
    items.createSessionLoginItems()->insertBeforeFirst(url());
    ::umask(previous);
    for (const auto& [name, mode] : {std::pair(ownEntry(), 0600U), {QFileInfo(ownEntry()).path(), 0700U}}) {
        struct stat status = {};
        ASSERT_EQ(::stat(name.toUtf8().constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, mode) << name.toStdString();
    }
}

TEST_F(XdgLoginItemsTest, programOfAnyName_isStarted)
{
    for (const QString& name : {u"a b"_s, u"a\"b"_s, u"a'b"_s, u"a$HOME"_s, u"100%"_s, u"%U"_s, u"a\\b"_s,
                                u"a`b`"_s, u"a;b&c"_s, u" a "_s, u"%1%4"_s}) {
        const QString odd = _folder.filePath(name);
        ASSERT_TRUE(QFile::copy(program(), odd));
        QFile::remove(ownEntry());
        items.createSessionLoginItems()->insertBeforeFirst(QUrl::fromLocalFile(odd));
        const auto entry = DesktopEntry::read(ownEntry());
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->command(), QStringList{odd});
        EXPECT_EQ(entry->string(u"TryExec"_s), odd);
        EXPECT_EQ(urlsOf(items), QList<QUrl>{QUrl::fromLocalFile(odd)});
    }
}

TEST_F(XdgLoginItemsTest, insertingTwice_leavesOneEntry)
{
    items.createSessionLoginItems()->insertBeforeFirst(url());
    items.createSessionLoginItems()->insertBeforeFirst(url());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

struct OtherRow
{
    const char* sentence;
    QByteArray contents;
    int items; ///< that there are beside ours
};

TEST_F(XdgLoginItemsTest, newEntry_goesBesideOthers_neverOverOne)
{
    const QString other = _folder.filePath(u"other copy"_s);
    ASSERT_TRUE(QFile::copy(program(), other));
    const QByteArray head = "[Desktop Entry]\nType=Application\n";
    const QByteArray exec = "Exec=" + DesktopEntry::execValue({other}).toUtf8() + '\n';
    const OtherRow rows[] = {
        {"another copy", head + exec, 1},
        {"another copy, switched off", head + exec + "Hidden=true\n", 0},
        {"a copy that is gone, or on a medium that is not there", head + "Exec=/nowhere/tarnwick\n", 1},
        {"an entry without a command", head, 1},
        {"one that switches off what the system starts", head + "Hidden=true\n", 0},
        {"what cannot be read", QByteArray(5000, '\xfe'), 0},
    };
    for (const QString& configuration : {user(), system()}) {
        for (const OtherRow& row : rows) {
            SCOPED_TRACE(row.sentence);
            QDir(user()).removeRecursively();
            QDir(system()).removeRecursively();
            QDir().mkpath(configuration + u"/autostart"_s);
            QFile file(configuration + u"/autostart/example.quorlane.Tarnwick.desktop"_s);
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            file.write(row.contents);
            file.flush();
            items.createSessionLoginItems()->insertBeforeFirst(url());
            EXPECT_EQ(urlsOf(items).size(), row.items + 1);
            EXPECT_EQ(urlsOf(items).constFirst(), url()) << "the newest first";
            file.seek(0);
            EXPECT_EQ(file.readAll(), row.contents);
            EXPECT_TRUE(QFile::exists(file.fileName()));
            items.createSessionLoginItems()->insertBeforeFirst(url());
            EXPECT_EQ(urlsOf(items).size(), row.items + 1) << "a second time";
            const auto list = items.createSessionLoginItems();
            list->remove(*list->copySnapshot().constFirst());
            EXPECT_EQ(urlsOf(items).size(), row.items);
            EXPECT_FALSE(urlsOf(items).contains(url()));
        }
    }
}

TEST_F(XdgLoginItemsTest, newEntry_leavesALinkThatLeadsNowhere)
{
    QDir().mkpath(user() + u"/autostart"_s);
    ASSERT_TRUE(QFile::link(_folder.filePath(u"away/entry"_s), ownEntry()));
    items.createSessionLoginItems()->insertBeforeFirst(url());
    EXPECT_TRUE(QFileInfo(ownEntry()).isSymLink());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

TEST_F(XdgLoginItemsTest, newEntry_ofSeveralCopies_areAllThere)
{
    QList<QUrl> expected;
    for (const QString& name : {u"one"_s, u"two"_s, u"three"_s}) {
        ASSERT_TRUE(QFile::copy(program(), _folder.filePath(name)));
        expected.append(QUrl::fromLocalFile(_folder.filePath(name)));
        items.createSessionLoginItems()->insertBeforeFirst(expected.constLast());
    }
    QList<QUrl> found = urlsOf(items);
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(found, expected);
    EXPECT_EQ(QDir(user() + u"/autostart"_s).entryList(QDir::Files),
              (QStringList{u"example.quorlane.Tarnwick-2.desktop"_s, u"example.quorlane.Tarnwick-3.desktop"_s,
                           u"example.quorlane.Tarnwick.desktop"_s}));
}

TEST_F(XdgLoginItemsTest, entryUnderAnotherName_isFoundAndRemoved)
{
    write(user(), u"mine.desktop"_s, exec());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
    const auto list = items.createSessionLoginItems();
    list->remove(*list->copySnapshot().constFirst());
    EXPECT_FALSE(QFile::exists(user() + u"/autostart/mine.desktop"_s));
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
}

TEST_F(XdgLoginItemsTest, programBehindALink_isTheProgram)
{
    const QString link = _folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(program(), link));
    write(user(), u"mine.desktop"_s, "Exec=" + link.toUtf8() + '\n');
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

struct Row
{
    const char* sentence;
    QByteArray lines;
    int items;
};

TEST_F(XdgLoginItemsTest, entryThatDoesNotStart_isNoItem)
{
    const Row rows[] = {
        {"as it should be", {}, 1},
        {"hidden", "Hidden=true\n", 0},
        {"switched off in the session's settings", "X-GNOME-Autostart-enabled=false\n", 0},
        {"for this desktop", "OnlyShowIn=KDE;GNOME;\n", 1},
        {"for another desktop", "OnlyShowIn=KDE;\n", 0},
        {"not for this desktop", "NotShowIn=GNOME;\n", 0},
        {"not for another desktop", "NotShowIn=KDE;\n", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.sentence);
        write(user(), u"mine.desktop"_s, exec() + row.lines);
        EXPECT_EQ(urlsOf(items).size(), row.items);
    }
}

TEST_F(XdgLoginItemsTest, switchedOffEntryOfOurs_startsAgainWhenInserted)
{
    items.createSessionLoginItems()->insertBeforeFirst(url());
    write(user(), u"example.quorlane.Tarnwick.desktop"_s, exec() + "X-GNOME-Autostart-enabled=false\n");
    ASSERT_EQ(urlsOf(items), QList<QUrl>());
    items.createSessionLoginItems()->insertBeforeFirst(url());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

TEST_F(XdgLoginItemsTest, itemThatCannotBeResolved_isListedWithoutAUrl)
{
    write(user(), u"gone.desktop"_s, "Exec=/nowhere/program\n");
    write(user(), u"none.desktop"_s, "Name=no command\n");
    EXPECT_EQ(urlsOf(items), (QList<QUrl>{QUrl(), QUrl()}));
}

TEST_F(XdgLoginItemsTest, filesThatAreNoEntries_areNoItems)
{
    QDir().mkpath(user() + u"/autostart"_s);
    QFile garbage(user() + u"/autostart/garbage.desktop"_s);
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write(QByteArray(5000, '\xfe'));
    garbage.close();
    write(user(), u"backup.desktop~"_s, exec());
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
}

TEST_F(XdgLoginItemsTest, systemEntry_isAnItem_andIsSwitchedOffForTheUser)
{
    write(system(), u"tarnwick.desktop"_s, exec());
    ASSERT_EQ(urlsOf(items), QList<QUrl>{url()});
    const auto list = items.createSessionLoginItems();
    list->remove(*list->copySnapshot().constFirst());
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
    EXPECT_TRUE(QFile::exists(system() + u"/autostart/tarnwick.desktop"_s));
    items.createSessionLoginItems()->insertBeforeFirst(url());
    EXPECT_EQ(urlsOf(items), QList<QUrl>{url()});
}

TEST_F(XdgLoginItemsTest, userEntry_hidesTheSystemsOfTheSameName)
{
    write(system(), u"tarnwick.desktop"_s, exec());
    write(user(), u"tarnwick.desktop"_s, "Hidden=true\n");
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
}

TEST_F(XdgLoginItemsTest, folderThatCannotBeWritten_changesNothing)
{
    QFile obstacle(user());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    items.createSessionLoginItems()->insertBeforeFirst(url());
    EXPECT_EQ(urlsOf(items), QList<QUrl>());
}

TEST_F(XdgLoginItemsTest, withoutAConfigurationFolder_thereIsNoList)
{
    XdgLoginItems nowhere({}, {}, {});
    EXPECT_FALSE(nowhere.createSessionLoginItems());
}

} // namespace
