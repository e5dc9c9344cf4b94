// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

namespace tarnwick {

class MenuItem;

/// The text that a toolkit menu draws for an item: its title as it stands (the attributed one when there is
/// one) with ampersands drawn, tabs and line ends as blanks, and the key equivalent in the column of
/// shortcuts. Each runs in its own direction, in a menu that runs in that of `menu`.
[[nodiscard]] QString menuActionText(const MenuItem& item, Qt::LayoutDirection menu);

/// The title as it is drawn, on one line and without the key equivalent.
[[nodiscard]] QString drawnTitle(const MenuItem& item);

/// The font of the item in a menu of `menuFont`. A filled and outlined title is drawn bold.
[[nodiscard]] QFont menuItemFont(const MenuItem& item, const QFont& menuFont);

} // namespace tarnwick
