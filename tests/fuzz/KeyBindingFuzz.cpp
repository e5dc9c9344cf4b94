// SPDX-License-Identifier: MIT
// Key bindings as applications publish them. A byte that says how they are read, then
// a line with the binding and the name of the item.
#include "platform/linux/atspi/AtspiKeyBinding.h"
#include "platform/linux/menus/MenuShortcut.h"
#include "tests/fuzz/Fuzzing.h"

#include <QList>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <array>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr xkb_keysym_t LargestKeysym = 0x1fffffff;

/// The accelerator that stands for `binding`.
QString accelerator(const KeyBinding& binding)
{
    std::array<char, 64> name{};
    xkb_keysym_get_name(binding.key, name.data(), name.size());
    QString text;
    text += binding.control ? u"<Control>" : u"";
    text += binding.alt ? u"<Alt>" : u"";
    text += binding.shift ? u"<Shift>" : u"";
    text += binding.super ? u"<Super>" : u"";
    return text + QString::fromLatin1(name.data());
}

xkb_keysym_t keysymOfGlyph(int glyph)
{
    switch (glyph) {
    case 11:
        return XKB_KEY_Return;
    case 23:
        return XKB_KEY_BackSpace;
    case 27:
        return XKB_KEY_Escape;
    case 32:
        return XKB_KEY_space;
    case 98:
        return XKB_KEY_Page_Up;
    case 100:
        return XKB_KEY_Left;
    case 101:
        return XKB_KEY_Right;
    case 102:
        return XKB_KEY_Home;
    case 104:
        return XKB_KEY_Up;
    case 105:
        return XKB_KEY_End;
    case 106:
        return XKB_KEY_Down;
    case 107:
        return XKB_KEY_Page_Down;
    case 140:
        return XKB_KEY_XF86Eject;
    default:
        require(glyph >= 111 && glyph <= 123, "a glyph is one that a menu can draw");
        return XKB_KEY_F1 + static_cast<xkb_keysym_t>(glyph - 111);
    }
}

void checkShortcut(const MenuShortcut& shortcut)
{
    require(shortcut.glyph.has_value() == shortcut.character.isEmpty(),
            "a shortcut has a glyph or a character, and not both");
    require(shortcut.modifiers >= 0 && shortcut.modifiers <= 12 && shortcut.modifiers != 5 &&
                shortcut.modifiers != 7 && shortcut.modifiers != 8,
            "its modifiers are ones that a menu can draw");
    KeyBinding shown;
    shown.shift = (shortcut.modifiers & 1) != 0;
    shown.alt = (shortcut.modifiers & 2) != 0;
    shown.super = (shortcut.modifiers & 4) != 0;
    shown.control = (shortcut.modifiers & 8) == 0;
    if (shortcut.glyph) {
        shown.key = keysymOfGlyph(*shortcut.glyph);
    } else {
        const QList<uint> characters = shortcut.character.toUcs4();
        require(characters.size() == 1, "the character is one");
        require(QChar::isPrint(char32_t{characters.first()}), "the character can be seen");
        shown.key = xkb_utf32_to_keysym(characters.first());
    }
    require(MenuShortcut::of(shown) == shortcut, "what the menu shows is the shortcut");
}

void checkBinding(const std::optional<KeyBinding>& binding)
{
    if (!binding)
        return;
    require(binding->key != XKB_KEY_NoSymbol && binding->key <= LargestKeysym, "a binding's key is a key");
    require(KeyBinding::parseAccelerator(accelerator(*binding)) == binding,
            "a binding that is written as an accelerator reads the same");
    if (const auto shortcut = MenuShortcut::of(*binding))
        checkShortcut(*shortcut);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::array toolkits{AtspiToolkit::Gtk, AtspiToolkit::Qt, AtspiToolkit::Unknown,
                                  AtspiToolkit::Bridge, AtspiToolkit::Gtk4};
    FuzzInput input(data, size);
    const int way = input.choice(toolkits.size() + 1);
    const QString text = QString::fromUtf8(input.until('\n'));
    const QString name = QString::fromUtf8(input.rest());
    if (way == 0)
        checkBinding(KeyBinding::parseAccelerator(text));
    else
        checkBinding(keyBindingOf(text, name, toolkits[static_cast<std::size_t>(way) - 1]));
    return 0;
}
