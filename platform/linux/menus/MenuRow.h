// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/menus/MenuShortcut.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

struct GtkMenuAction;

/// One visible entry of a menu or menu bar, in the form that is the same for all toolkits.
struct MenuRow
{
    enum class Kind { Item, Holder, Separator };

    Kind kind = Kind::Item;
    QString title; ///< empty for separators only
    bool enabled = false;
    bool checked = false;
    std::optional<MenuShortcut> shortcut;
    BusReference item; ///< what is pressed
    /// What is activated, of entries that name an action instead of being pressed; null for others.
    std::shared_ptr<const GtkMenuAction> action;
    BusReference contents; ///< a holder's submenu; the item itself where the toolkit has no menu between
};

/// What the holders among them hold.
[[nodiscard]] inline QList<BusReference> menusIn(const QList<MenuRow>& rows)
{
    QList<BusReference> menus;
    for (const MenuRow& row : rows)
        if (row.kind == MenuRow::Kind::Holder)
            menus.append(row.contents);
    return menus;
}

} // namespace tarnwick
