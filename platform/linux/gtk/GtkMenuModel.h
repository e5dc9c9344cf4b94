// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/bus/SdBusValue.h"

#include <QHash>
#include <QString>

#include <optional>

namespace tarnwick {

/// Which menu of an exported model: a menu of a group. Sections belong to the group of what holds them, a
/// submenu is a group of its own.
struct GtkMenuNumber
{
    quint32 group = 0;
    quint32 menu = 0;

    friend bool operator==(const GtkMenuNumber&, const GtkMenuNumber&) = default;
    friend size_t qHash(const GtkMenuNumber& number, size_t seed = 0)
    {
        return qHashMulti(seed, number.group, number.menu);
    }
};

/// One entry of an exported menu as it came. What it does not have, or has in a wrong type, is missing.
struct GtkMenuEntry
{
    std::optional<QString> label; ///< an underscore stands before its mnemonic
    std::optional<QString> accelerator;
    std::optional<QByteArray> action;
    std::optional<SdBusValue> target;
    QByteArray actionNamespace;
    QByteArray hiddenWhen;
    std::optional<GtkMenuNumber> section;
    std::optional<GtkMenuNumber> submenu;
};

using GtkMenus = QHash<GtkMenuNumber, QList<GtkMenuEntry>>;

/// An exported action as it is now.
struct GtkActionFacts
{
    bool enabled = false;
    QByteArray parameterType; ///< empty when it takes none
    std::optional<SdBusValue> state;
};

/// By name, without the prefix that menus use.
using GtkActions = QHash<QByteArray, GtkActionFacts>;

/// What a press of an entry activates.
struct GtkMenuAction
{
    QByteArray path; ///< of the group of actions
    QByteArray name; ///< within it
    std::optional<SdBusValue> target;
};

} // namespace tarnwick
