// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/DesktopEntries.h"

#include "platform/linux/xdg/DesktopEntry.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QStringList applicationDirectories()
{
    QString home = qEnvironmentVariable("XDG_DATA_HOME");
    if (home.isEmpty())
        home = QDir::homePath() + u"/.local/share"_s;
    QString shared = qEnvironmentVariable("XDG_DATA_DIRS");
    if (shared.isEmpty())
        shared = u"/usr/local/share:/usr/share"_s;
    QStringList directories;
    for (const QString& base : QStringList(home) + shared.split(u':', Qt::SkipEmptyParts))
        directories.append(base + u"/applications"_s);
    return directories;
}

/// File name of the program that a command runs; empty for one that only starts another.
QString programOf(const QStringList& command)
{
    const QString program = QFileInfo(command.value(0)).fileName();
    static const QSet<QString> starters{u"env"_s,  u"sh"_s,   u"bash"_s,    u"python3"_s, u"python"_s,
                                        u"perl"_s, u"java"_s, u"flatpak"_s, u"snap"_s};
    return starters.contains(program) ? QString() : program;
}

void insertFirst(QHash<QString, QString>& names, const QString& key, const QString& name)
{
    if (!key.isEmpty() && !names.contains(key))
        names.insert(key, name);
}

} // namespace

DesktopEntries::DesktopEntries() : DesktopEntries(applicationDirectories()) {}

void DesktopEntries::_read()
{
    QStringList stamps;
    for (const QString& directory : std::as_const(_directories))
        stamps.append(QFileInfo(directory).lastModified().toString(Qt::ISODateWithMs));
    if (stamps == _stamps)
        return;
    _stamps = stamps;
    _byIdentifier.clear();
    _byClass.clear();
    _byProgram.clear();
    for (const QString& directory : std::as_const(_directories)) {
        QDirIterator files(directory, {u"*.desktop"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString relative = QDir(directory).relativeFilePath(path);
            _readFile(path, relative.chopped(8).replace(u'/', u'-').toLower());
        }
    }
}

void DesktopEntries::_readFile(const QString& path, const QString& identifier)
{
    if (_byIdentifier.contains(identifier))
        return; // hidden by an earlier directory's
    const auto entry = DesktopEntry::read(path);
    const bool usable = entry && entry->string(u"Type"_s) == "Application"_L1;
    const QString name = usable ? entry->string(u"Name"_s).trimmed() : QString();
    _byIdentifier.insert(identifier, name);
    if (name.isEmpty())
        return;
    insertFirst(_byClass, entry->string(u"StartupWMClass"_s).toLower(), name);
    if (!entry->boolean(u"NoDisplay"_s, false))
        insertFirst(_byProgram, programOf(entry->command()), name);
}

QString DesktopEntries::nameForWindowClass(const QString& windowClass)
{
    _read();
    const QString wanted = windowClass.toLower();
    const QString named = _byClass.value(wanted);
    return named.isEmpty() ? _byIdentifier.value(wanted) : named;
}

QString DesktopEntries::nameForProgram(const QString& program)
{
    _read();
    return _byProgram.value(program);
}

} // namespace tarnwick
