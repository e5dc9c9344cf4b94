// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiKeyBinding.h"

#include "platform/linux/keys/PortableShortcut.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <iterator>

namespace tarnwick {

namespace {

/// The keys that type no character and that a menu can show, besides those with numbers.
constexpr xkb_keysym_t ShownKeys[] = {
    XKB_KEY_Return, XKB_KEY_BackSpace, XKB_KEY_Escape, XKB_KEY_Page_Up, XKB_KEY_Page_Down, XKB_KEY_Home,
    XKB_KEY_End,    XKB_KEY_Left,      XKB_KEY_Right,  XKB_KEY_Up,      XKB_KEY_Down,      XKB_KEY_XF86Eject,
};

char32_t characterOf(xkb_keysym_t key)
{
    return xkb_keysym_to_utf32(key);
}

bool canBeShown(xkb_keysym_t key)
{
    return (key >= XKB_KEY_F1 && key <= XKB_KEY_F35) || QChar::isPrint(characterOf(key)) ||
           std::ranges::find(ShownKeys, key) != std::end(ShownKeys);
}

bool isLetterOf(xkb_keysym_t key, const QString& name)
{
    const char32_t character = characterOf(key);
    return character != 0 && name.contains(QString::fromUcs4(&character, 1), Qt::CaseInsensitive);
}

std::optional<KeyBinding> parsePortableText(const QString& text, const QString& name)
{
    const auto read = PortableShortcut::parse(text);
    if (!read || !canBeShown(read->keysym))
        return std::nullopt;
    const bool onlyAlt = read->alt && !read->control && !read->shift && !read->super;
    if (onlyAlt && isLetterOf(read->keysym, name)) // what Qt gives for a mnemonic
        return std::nullopt;
    return KeyBinding{read->control, read->alt, read->shift, read->super, read->keysym};
}

} // namespace

std::optional<KeyBinding> keyBindingOf(const QString& text, const QString& name, AtspiToolkit toolkit)
{
    if (toolkit != AtspiToolkit::Qt && text.contains(u';')) { // mnemonic; path from the menu bar; accelerator
        const bool ofGtk = toolkit == AtspiToolkit::Gtk || toolkit == AtspiToolkit::Gtk4;
        return KeyBinding::parseAccelerator(text.section(u';', 2, 2).trimmed(),
                                            ofGtk ? KeyBinding::Meta::IsAlt : KeyBinding::Meta::IsSuper);
    }
    if (toolkit == AtspiToolkit::Gtk || toolkit == AtspiToolkit::Bridge || text.startsWith(u'<'))
        return std::nullopt;
    return parsePortableText(text, name);
}

} // namespace tarnwick
