// SPDX-License-Identifier: MIT
#include "menu/GlyphLookUpTable.h"

namespace tarnwick {

namespace {

struct Row
{
    int glyph;
    char16_t character;
};

// U+F700 and up are the function-key characters.
constexpr Row Rows[] = {
    {11, 0x000D},  // Return
    {16, 0xF701},  // down arrow
    {23, 0x0008},  // Delete (backspace)
    {24, 0xF702},  // left arrow
    {25, 0xF700},  // up arrow
    {26, 0xF703},  // right arrow
    {27, 0x001B},  // Escape
    {32, 0x0020},  // Space
    {98, 0xF72C},  // Page Up
    {100, 0xF702}, // left arrow
    {101, 0xF703}, // right arrow
    {102, 0xF729}, // Home
    {104, 0xF700}, // up arrow
    {105, 0xF72B}, // End
    {106, 0xF701}, // down arrow
    {107, 0xF72D}, // Page Down
    {111, 0xF704}, // F1
    {112, 0xF705}, // F2
    {113, 0xF706}, // F3
    {114, 0xF707}, // F4
    {115, 0xF708}, // F5
    {116, 0xF709}, // F6
    {117, 0xF70A}, // F7
    {118, 0xF70B}, // F8
    {119, 0xF70C}, // F9
    {120, 0xF70D}, // F10
    {121, 0xF70E}, // F11
    {122, 0xF70F}, // F12
    {123, 0xF710}, // F13, deliberately following the run of F1 to F12
    {140, 0x23CF}, // Eject: the Unicode symbol, no function-key character
};

} // namespace

QHash<QString, QString> glyphLookUpTable()
{
    QHash<QString, QString> table;
    table.reserve(std::size(Rows));
    for (const Row& row : Rows)
        table.insert(QString::number(row.glyph), QString(QChar(row.character)));
    return table;
}

} // namespace tarnwick
