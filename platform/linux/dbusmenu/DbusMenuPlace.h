// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>

namespace tarnwick {

/// An entry of an exported menu, and the submenu that it holds; number 0 is the menu bar. Since a number may
/// be another entry's by the time it is used, the place knows by which titles it was reached.
struct DbusMenuPlace
{
    QByteArray menu; ///< object path of the whole menu
    qint32 number = 0;
    QByteArrayList way = {}; ///< a mark for each title from the menu bar on, its own the last

    /// Short, however long the title is; the same for the same title as long as the program runs.
    [[nodiscard]] static QByteArray mark(const QString& title);
    /// An entry of the submenu.
    [[nodiscard]] DbusMenuPlace below(qint32 entry, const QString& title) const;

    /// As the path of a reference, which only fromPath() understands.
    [[nodiscard]] QByteArray toPath() const;
    [[nodiscard]] static std::optional<DbusMenuPlace> fromPath(const QByteArray& path);

    friend bool operator==(const DbusMenuPlace&, const DbusMenuPlace&) = default;
};

} // namespace tarnwick
