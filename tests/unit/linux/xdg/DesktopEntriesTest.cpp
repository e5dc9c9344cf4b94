// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntries.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

using namespace tarnwick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class DesktopEntriesTest : public ::testing::Test
{
protected:
    void write(const QString& path, const QByteArray& contents)
    {
        const QString full = directory.filePath(path);
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + contents);
    }

    QTemporaryDir directory;
    DesktopEntries entries{{directory.filePath(u"mine"_s), directory.filePath(u"shared"_s)}};
};

} // namespace

TEST_F(DesktopEntriesTest, names_areFoundByClassIdentifierAndProgram)
{
    write(u"shared/org.example.Editor.desktop"_s,
          "Name[de]=Schreiber\nName=Editor\nExec=/usr/bin/example-editor %F\nStartupWMClass=Ed\n");
    EXPECT_EQ(entries.nameForWindowClass(u"Ed"_s), u"Editor"_s);
    EXPECT_EQ(entries.nameForWindowClass(u"eD"_s), u"Editor"_s) << "in any case";
    EXPECT_EQ(entries.nameForWindowClass(u"org.example.Editor"_s), u"Editor"_s);
    EXPECT_EQ(entries.nameForProgram(u"example-editor"_s), u"Editor"_s);
    EXPECT_EQ(entries.nameForWindowClass(u"Other"_s), QString());
    EXPECT_EQ(entries.nameForProgram(u"other"_s), QString());
    EXPECT_EQ(entries.nameForWindowClass({}), QString());
    EXPECT_EQ(entries.nameForProgram({}), QString());
}

TEST_F(DesktopEntriesTest, subdirectories_arePartOfTheIdentifier)
{
    write(u"shared/kde/reader.desktop"_s, "Name=Reader\nExec=reader\n");
    EXPECT_EQ(entries.nameForWindowClass(u"kde-reader"_s), u"Reader"_s);
}

TEST_F(DesktopEntriesTest, theEarlierDirectory_winsAndMayHide)
{
    write(u"mine/editor.desktop"_s, "Name=Mine\nExec=editor\n");
    write(u"shared/editor.desktop"_s, "Name=Shared\nExec=editor\n");
    EXPECT_EQ(entries.nameForWindowClass(u"editor"_s), u"Mine"_s);
    EXPECT_EQ(entries.nameForProgram(u"editor"_s), u"Mine"_s);
}

TEST_F(DesktopEntriesTest, starters_areNoPrograms)
{
    write(u"shared/a.desktop"_s, "Name=Script\nExec=python3 /opt/script.py\n");
    write(u"shared/b.desktop"_s, "Name=Settings\nExec=editor --settings\nNoDisplay=true\n");
    EXPECT_EQ(entries.nameForProgram(u"python3"_s), QString());
    EXPECT_EQ(entries.nameForProgram(u"editor"_s), QString()) << "what is not shown names no program";
    EXPECT_EQ(entries.nameForWindowClass(u"b"_s), u"Settings"_s) << "but its own windows";
}

TEST_F(DesktopEntriesTest, aNewFile_isSeen)
{
    write(u"shared/a.desktop"_s, "Name=First\nExec=first\n");
    const auto shared = directory.filePath(u"shared"_s).toStdString();
    std::filesystem::last_write_time(shared, std::filesystem::file_time_type::clock::now() - 1h);
    EXPECT_EQ(entries.nameForProgram(u"second"_s), QString());
    write(u"shared/c.desktop"_s, "Name=Second\nExec=second\n");
    EXPECT_EQ(entries.nameForProgram(u"second"_s), u"Second"_s);
}
