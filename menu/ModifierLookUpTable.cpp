// SPDX-License-Identifier: MIT
#include "menu/ModifierLookUpTable.h"

namespace tarnwick {

namespace {

struct Row
{
    int code;
    quint32 mask;
};

// The code is a set of bits: 1 Shift, 2 Option, 4 Control, 8 no Command. The gaps (5, 7, 13 to 15) and
// Command for 8, which says no key at all, are deliberate.
constexpr Row Rows[] = {
    {1, 0x120000}, // Shift, Command
    {2, 0x180000}, // Option, Command
    {3, 0x1A0000}, // Shift, Option, Command
    {4, 0x140000}, // Control, Command
    {6, 0x1C0000}, // Option, Control, Command
    {8, 0x100000}, // Command
    {9, 0x20000},  // Shift
    {10, 0x80000}, // Option
    {11, 0xA0000}, // Shift, Option
    {12, 0x40000}, // Control
};

} // namespace

QHash<QString, quint32> modifierLookUpTable()
{
    QHash<QString, quint32> table;
    table.reserve(std::size(Rows));
    for (const Row& row : Rows)
        table.insert(QString::number(row.code), row.mask);
    return table;
}

} // namespace tarnwick
