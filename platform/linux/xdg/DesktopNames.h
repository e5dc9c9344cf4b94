// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The names that Tarnwick goes by among the programs of a desktop.
namespace tarnwick::desktop_names {

/// Its name on the session bus; its desktop entry's file name, without ".desktop", is the same.
inline const QString BusName = QStringLiteral("example.quorlane.Tarnwick");
inline const QString ObjectPath = QStringLiteral("/example/quorlane/Tarnwick");
/// What other programs can ask of it by that name; its desktop entry offers it, too.
inline const QString PopUpAction = QStringLiteral("pop-up");
/// The same of a mouse button that somebody else has seen.
inline const QString PopUpByPointerAction = QStringLiteral("pop-up-by-pointer");
/// The menu with its search begun.
inline const QString SearchAction = QStringLiteral("search");

inline const QString ApplicationName = QStringLiteral("Tarnwick");
inline const QString OrganizationName = QStringLiteral("Quorlane");

} // namespace tarnwick::desktop_names
