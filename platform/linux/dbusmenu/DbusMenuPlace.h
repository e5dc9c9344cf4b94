// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace tarnwick {

/// An entry of an exported menu, and the submenu that it holds; number 0 is the menu bar.
struct DbusMenuPlace
{
    QByteArray menu; ///< object path of the whole menu
    qint32 number = 0;

    /// As the path of a reference, which only fromPath() understands.
    [[nodiscard]] QByteArray toPath() const;
    [[nodiscard]] static std::optional<DbusMenuPlace> fromPath(const QByteArray& path);

    friend bool operator==(const DbusMenuPlace&, const DbusMenuPlace&) = default;
};

} // namespace tarnwick
