// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/XdgLoginItems.h"
#include "tests/contract/prefs/LoginItemsContract.h"
#include "tests/fakes/FakeLoginItems.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const QUrl Application = QUrl::fromLocalFile(QFileInfo(u"/bin/sh"_s).canonicalFilePath());
const QUrl Other = QUrl::fromLocalFile(QFileInfo(u"/bin/ls"_s).canonicalFilePath());

TEST(LoginItems, fake_keepsTheContract)
{
    FakeLoginItems items;
    items.add(Other);
    loginItemsContract(items, Application, Other);
}

TEST(LoginItems, autostartEntries_keepTheContract)
{
    const QTemporaryDir configuration;
    QDir(configuration.path()).mkdir(u"autostart"_s);
    QFile entry(configuration.filePath(u"autostart/other.desktop"_s));
    ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nType=Application\nExec=ls\n");
    entry.flush();
    entry.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
    entry.close();
    XdgLoginItems items(configuration.path(), {}, {});
    loginItemsContract(items, Application, Other);
}

TEST(LoginItems, autostartEntry_startsNothingOnceTheProgramIsGone)
{
    const QTemporaryDir configuration;
    XdgLoginItems items(configuration.path(), {}, {});
    const QString program = u"/opt/a b\\c/tarnwick"_s;
    items.createSessionLoginItems()->insertBeforeFirst(QUrl::fromLocalFile(program));
    const auto entry =
        DesktopEntry::read(configuration.filePath(u"autostart/example.quorlane.Tarnwick.desktop"_s));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->string(u"TryExec"_s), program);
    EXPECT_EQ(entry->command(), QStringList{program});
}

} // namespace
