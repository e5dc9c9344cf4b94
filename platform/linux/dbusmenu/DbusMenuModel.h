// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tarnwick {

/// One entry of an exported menu as it came. What it does not have, or has in a wrong type, is as the
/// protocol has it by default.
struct DbusMenuEntry
{
    enum class Toggle { None, Check, Radio };

    qint32 number = 0; ///< the exporter may give it to another entry at its next layout
    QString label;     ///< an underscore stands before its mnemonic: see DbusMenuHabits
    bool enabled = true;
    bool visible = true;
    bool separator = false;
    bool submenu = false;
    Toggle toggle = Toggle::None;
    bool on = false;             ///< a toggle's state
    QList<QStringList> shortcut; ///< one list a stroke: the modifiers' names, then the key's
};

/// An entry with those right below it.
struct DbusMenuLayout
{
    DbusMenuEntry menu;
    QList<DbusMenuEntry> entries;
};

} // namespace tarnwick
