// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/BusReference.h"
#include "platform/linux/gtk/GtkMenuModel.h"

#include <optional>

namespace tarnwick {

/// Where one menu of an exported model is, and where the actions of its entries are.
struct GtkMenuPlace
{
    QByteArray menus;              ///< object path of the model
    QByteArray applicationActions; ///< object paths of the groups of actions, empty when there are none
    QByteArray windowActions;
    GtkMenuNumber number;
    QByteArray actionNamespace; ///< stands before the names of all actions in the menu; usually empty
    /// Those that a module of GTK exports for a window that has none of its own. Empty otherwise.
    QByteArray moduleActions = {};

    /// As the path of a reference, which only fromPath() understands.
    [[nodiscard]] QByteArray toPath() const;
    [[nodiscard]] static std::optional<GtkMenuPlace> fromPath(const QByteArray& path);

    /// The path of the group that an action belongs to, by the prefix of its name, with the rest of the name;
    /// nothing for prefixes that are not exported. `within` stands before the name; it is the namespace of
    /// the menu with those of the sections that the entry is in.
    [[nodiscard]] std::optional<GtkMenuAction> find(const QByteArray& action, const QByteArray& within) const;

    friend bool operator==(const GtkMenuPlace&, const GtkMenuPlace&) = default;
};

} // namespace tarnwick
