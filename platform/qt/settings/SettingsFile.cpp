// SPDX-License-Identifier: MIT
#include "platform/qt/settings/SettingsFile.h"

#include "platform/qt/settings/FileDescriptor.h"
#include "platform/qt/settings/PrivateFile.h"
#include "platform/qt/settings/WholeFile.h"

#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qint64 LargestFile = 4LL * 1024 * 1024;
constexpr mode_t OwnerOnly = S_IRUSR | S_IWUSR;
constexpr int MostLinks = 16;

/// A file of somebody else would become ours, one that is read-only was made so on purpose.
bool mayReplace(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return true;
    return status.st_uid == ::geteuid() && (status.st_mode & S_IWUSR) != 0;
}

/// Keeps other Tarnwicks from writing in the folder. It ends with this process at the latest, so none is ever
/// left behind.
bool lock(const FileDescriptor& folder, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds Step(5);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(folder.number(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true; // a file system without locks
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(Step);
    }
    return true;
}

} // namespace

std::optional<QSettings::SettingsMap> SettingsFile::read() const
{
    const auto bytes = wholeFile(_target(), LargestFile);
    return bytes ? std::optional(settings_text::parse(*bytes)) : std::nullopt;
}

SettingsFile::Outcome SettingsFile::update(const std::function<void(QSettings::SettingsMap&)>& change,
                                           std::chrono::milliseconds patience) const
{
    const QString target = _target();
    const QString folderPath = QFileInfo(target).path();
    if (target.isEmpty() || !private_file::makeFolder(folderPath))
        return Outcome::Refused;
    const FileDescriptor folder(folderPath, O_RDONLY | O_DIRECTORY);
    if (!folder)
        return Outcome::Refused;
    if (!lock(folder, patience))
        return Outcome::Busy;
    const auto bytes = wholeFile(target, LargestFile);
    if (!bytes || !mayReplace(target))
        return Outcome::Refused;
    QSettings::SettingsMap settings = settings_text::parse(*bytes);
    change(settings);
    return private_file::replace(target, settings_text::write(settings)) ? Outcome::Written
                                                                         : Outcome::Refused;
}

void SettingsFile::keepPrivate() const
{
    const FileDescriptor descriptor(_target(), O_RDONLY);
    struct stat status = {};
    if (descriptor && ::fstat(descriptor.number(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == ::geteuid() && (status.st_mode & 0777U & ~OwnerOnly) != 0)
        ::fchmod(descriptor.number(), status.st_mode & OwnerOnly);
}

QString SettingsFile::_target() const
{
    QString path = _path;
    for (int links = 0; links < MostLinks; ++links) {
        const QFileInfo file(path);
        if (!file.isSymLink())
            return path;
        path = file.symLinkTarget();
    }
    return {};
}

} // namespace tarnwick
