// SPDX-License-Identifier: MIT
#include "platform/qt/menu/KeyCharacters.h"

#include <algorithm>
#include <iterator>

namespace tarnwick {

namespace {

enum class Use {
    Both,           ///< in events and in key equivalents
    EquivalentOnly, ///< in events the key has another one, or types it
};

struct Row
{
    char16_t character;
    Qt::Key key;
    Use use = Use::Both;
};

constexpr Row Rows[] = {
    {0x0003, Qt::Key_Enter},
    {0x0008, Qt::Key_Backspace, Use::EquivalentOnly},
    {0x0009, Qt::Key_Tab},
    {0x000A, Qt::Key_Return, Use::EquivalentOnly},
    {0x000D, Qt::Key_Return},
    {0x0019, Qt::Key_Backtab},
    {0x001B, Qt::Key_Escape},
    {0x0020, Qt::Key_Space, Use::EquivalentOnly},
    {0x007F, Qt::Key_Backspace},
    {0x23CF, Qt::Key_Eject, Use::EquivalentOnly},
    {0xF700, Qt::Key_Up},
    {0xF701, Qt::Key_Down},
    {0xF702, Qt::Key_Left},
    {0xF703, Qt::Key_Right},
    {0xF727, Qt::Key_Insert},
    {0xF728, Qt::Key_Delete},
    {0xF729, Qt::Key_Home},
    {0xF72B, Qt::Key_End},
    {0xF72C, Qt::Key_PageUp},
    {0xF72D, Qt::Key_PageDown},
    {0xF72E, Qt::Key_Print},
    {0xF72F, Qt::Key_ScrollLock},
    {0xF730, Qt::Key_Pause},
    {0xF731, Qt::Key_SysReq},
    {0xF735, Qt::Key_Menu},
    {0xF738, Qt::Key_Print, Use::EquivalentOnly},
    {0xF739, Qt::Key_Clear, Use::EquivalentOnly},
    {0xF746, Qt::Key_Help},
};

constexpr char16_t FirstFunctionKey = 0xF704; // F1
constexpr char16_t LastFunctionKey = 0xF726;  // F35
constexpr char16_t FirstKeyCharacter = 0xF700;
constexpr char16_t LastKeyCharacter = 0xF8FE;

} // namespace

std::optional<char16_t> characterOfKey(int key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return static_cast<char16_t>(FirstFunctionKey + (key - Qt::Key_F1));
    const auto* const row = std::find_if(std::begin(Rows), std::end(Rows), [key](const Row& candidate) {
        return candidate.key == key && candidate.use == Use::Both;
    });
    return row == std::end(Rows) ? std::nullopt : std::optional(row->character);
}

std::optional<Qt::Key> keyOfCharacter(char16_t character)
{
    if (character >= FirstFunctionKey && character <= LastFunctionKey)
        return static_cast<Qt::Key>(Qt::Key_F1 + (character - FirstFunctionKey));
    const auto* const row = std::find_if(std::begin(Rows), std::end(Rows), [character](const Row& candidate) {
        return candidate.character == character;
    });
    return row == std::end(Rows) ? std::nullopt : std::optional(row->key);
}

bool standsForKey(char16_t character)
{
    return character < 0x20 || (character >= FirstKeyCharacter && character <= LastKeyCharacter);
}

} // namespace tarnwick
