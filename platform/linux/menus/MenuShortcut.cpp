// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MenuShortcut.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

namespace tarnwick {

namespace {

/// The glyph codes that the mirrored menu can draw.
std::optional<int> glyphOf(xkb_keysym_t key)
{
    if (key >= XKB_KEY_F1 && key <= XKB_KEY_F13)
        return static_cast<int>(111 + (key - XKB_KEY_F1));
    switch (key) {
    case XKB_KEY_Return:
        return 11;
    case XKB_KEY_BackSpace:
        return 23;
    case XKB_KEY_Escape:
        return 27;
    case XKB_KEY_space:
        return 32;
    case XKB_KEY_Page_Up:
        return 98;
    case XKB_KEY_Left:
        return 100;
    case XKB_KEY_Right:
        return 101;
    case XKB_KEY_Home:
        return 102;
    case XKB_KEY_Up:
        return 104;
    case XKB_KEY_End:
        return 105;
    case XKB_KEY_Down:
        return 106;
    case XKB_KEY_Page_Down:
        return 107;
    case XKB_KEY_XF86Eject:
        return 140;
    default:
        return std::nullopt;
    }
}

QString characterOf(xkb_keysym_t key)
{
    const char32_t code = QChar::toUpper(char32_t{xkb_keysym_to_utf32(key)});
    if (code == 0 || !QChar::isPrint(code) || QChar::isSpace(code))
        return {};
    return QString::fromUcs4(&code, 1);
}

/// Not 8, which would be shown as Command, nor the others here, which would lose their modifiers.
bool canBeShown(int modifiers)
{
    switch (modifiers) {
    case 5:
    case 7:
    case 8:
    case 13:
    case 14:
    case 15:
        return false;
    default:
        return true;
    }
}

} // namespace

std::optional<MenuShortcut> MenuShortcut::of(const KeyBinding& binding)
{
    MenuShortcut shortcut;
    shortcut.modifiers =
        (binding.shift ? 1 : 0) + (binding.alt ? 2 : 0) + (binding.super ? 4 : 0) + (binding.control ? 0 : 8);
    shortcut.glyph = glyphOf(binding.key);
    if (!shortcut.glyph)
        shortcut.character = characterOf(binding.key);
    if (!canBeShown(shortcut.modifiers) || (!shortcut.glyph && shortcut.character.isEmpty()))
        return std::nullopt;
    return shortcut;
}

} // namespace tarnwick
