// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace tarnwick {

class Menu;
class MenuItem;

/// An entry of a menu that can be found.
struct MenuEntry
{
    std::shared_ptr<MenuItem> item; ///< held, since its menu may be filled anew meanwhile
    QString title;                  ///< as it is shown
    bool enabled = true;
    quint32 lastChosen = 0;          ///< greater for what was chosen later, 0 for never
    std::shared_ptr<Menu> menu = {}; ///< that it was read in
};

/// The entries of one menu, as they were read. Entries are numbered from 0 in the order in which they are
/// collected.
struct CollectedMenu
{
    int holder = -1;  ///< the number of the entry that holds the menu, −1 for the root
    QStringList path; ///< the titles on the way to it, outermost first
    QList<MenuEntry> entries;
};

} // namespace tarnwick
