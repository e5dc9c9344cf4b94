// SPDX-License-Identifier: MIT
// What reaches the disk, and in which order: a machine may stop at any time. The calls that tell the system
// are this program's own here, which write down what is called, and may fail.
#include "platform/qt/settings/QtDefaultsStore.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

struct Disk
{
    QStringList calls;
    bool broken = false; ///< fsync() fails
};

Disk disk;

QString nameOf(int descriptor)
{
    std::array<char, 4096> path{};
    const QByteArray link = "/proc/self/fd/" + QByteArray::number(descriptor);
    const ssize_t length = ::readlink(link.constData(), path.data(), path.size());
    return QFileInfo(QFile::decodeName(QByteArray(path.data(), std::max<ssize_t>(length, 0)))).fileName();
}

QString nameOf(const char* path)
{
    return QFileInfo(QFile::decodeName(path)).fileName();
}

} // namespace

// Those of the C library give way to these.

extern "C" int fsync(int descriptor)
{
    disk.calls.append(u"fsync %1"_s.arg(nameOf(descriptor)));
    if (!disk.broken)
        return static_cast<int>(::syscall(SYS_fsync, descriptor));
    errno = EIO;
    return -1;
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    disk.calls.append(u"rename %1 %2"_s.arg(nameOf(from), nameOf(to)));
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace {

class SettingsOnDisk : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(_path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[General]\nFontSizeSmall=12\n");
        file.close();
        disk = {};
    }

    void TearDown() override { disk = {}; }

    [[nodiscard]] QByteArray contents() const
    {
        QFile file(_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir _folder;
    QString _path = _folder.filePath(u"Tarnwick.conf"_s);
};

TEST_F(SettingsOnDisk, areWhole_beforeTheyTakeThePlaceOfTheOldOnes)
{
    QtDefaultsStore store(_path);
    store.setValue(u"FontSizeSmall"_s, 13);
    store.synchronize();
    EXPECT_EQ(disk.calls,
              (QStringList{u"fsync Tarnwick.conf.new"_s, u"rename Tarnwick.conf.new Tarnwick.conf"_s}));
    EXPECT_EQ(contents(), "[General]\nFontSizeSmall=13\n");
}

TEST_F(SettingsOnDisk, thatFails_leaveTheOldOnes_andAreWrittenOnceItWorks)
{
    QtDefaultsStore store(_path);
    store.setValue(u"FontSizeSmall"_s, 13);
    disk.broken = true;
    store.synchronize();
    EXPECT_EQ(disk.calls, QStringList{u"fsync Tarnwick.conf.new"_s});
    EXPECT_EQ(contents(), "[General]\nFontSizeSmall=12\n");
    EXPECT_FALSE(QFile::exists(_path + u".new"_s));
    disk.broken = false;
    store.synchronize();
    EXPECT_EQ(contents(), "[General]\nFontSizeSmall=13\n");
}

} // namespace
