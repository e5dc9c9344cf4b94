// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// The applications that are installed for this desktop, with the names that they give themselves
/// untranslated. Read when first asked, and again when an applications directory has changed.
class DesktopEntries
{
public:
    /// For $XDG_DATA_HOME and $XDG_DATA_DIRS.
    DesktopEntries();
    /// The earlier directory wins; each holds desktop files, in subdirectories too.
    explicit DesktopEntries(const QStringList& directories) : _directories(directories) {}

    /// The name of the application that a window names as its own (a desktop-file id, a window class);
    /// empty when there is none.
    [[nodiscard]] QString nameForWindowClass(const QString& windowClass);
    /// The name of the application that is started by this program's file name.
    [[nodiscard]] QString nameForProgram(const QString& program);

private:
    void _read();
    void _readFile(const QString& path, const QString& identifier);

    QStringList _directories;
    QStringList _stamps; ///< of the directories as they were read
    QHash<QString, QString> _byIdentifier;
    QHash<QString, QString> _byClass;
    QHash<QString, QString> _byProgram;
};

} // namespace tarnwick
