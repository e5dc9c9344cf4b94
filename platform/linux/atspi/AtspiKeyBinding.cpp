// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiKeyBinding.h"

#include <QKeySequence>

#include <array>
#include <utility>

namespace tarnwick {

namespace {

/// The keys with names of their own that a menu can show.
constexpr std::array<std::pair<int, xkb_keysym_t>, 12> NamedKeys{{
    {Qt::Key_Return, XKB_KEY_Return},
    {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Escape, XKB_KEY_Escape},
    {Qt::Key_PageUp, XKB_KEY_Page_Up},
    {Qt::Key_PageDown, XKB_KEY_Page_Down},
    {Qt::Key_Home, XKB_KEY_Home},
    {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},
    {Qt::Key_Right, XKB_KEY_Right},
    {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_Eject, XKB_KEY_XF86Eject},
}};

xkb_keysym_t keysymOf(int key)
{
    if (key < Qt::Key_Escape)
        return xkb_utf32_to_keysym(static_cast<std::uint32_t>(key));
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return XKB_KEY_F1 + static_cast<xkb_keysym_t>(key - Qt::Key_F1);
    for (const auto& [named, keysym] : NamedKeys)
        if (named == key)
            return keysym;
    return XKB_KEY_NoSymbol;
}

bool isLetterOf(int key, const QString& name)
{
    const auto code = static_cast<char32_t>(key);
    return key < Qt::Key_Escape && name.contains(QString::fromUcs4(&code, 1), Qt::CaseInsensitive);
}

std::optional<KeyBinding> parsePortableText(const QString& text, const QString& name)
{
    const QKeySequence sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
    if (sequence.count() != 1)
        return std::nullopt;
    const QKeyCombination combination = sequence[0];
    const Qt::KeyboardModifiers modifiers = combination.keyboardModifiers();
    const int key = combination.key();
    if (modifiers == Qt::AltModifier && isLetterOf(key, name)) // what Qt gives for a mnemonic
        return std::nullopt;
    const KeyBinding binding{modifiers.testFlag(Qt::ControlModifier), modifiers.testFlag(Qt::AltModifier),
                             modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::MetaModifier),
                             keysymOf(key)};
    return binding.key == XKB_KEY_NoSymbol ? std::nullopt : std::optional(binding);
}

} // namespace

std::optional<KeyBinding> keyBindingOf(const QString& text, const QString& name, AtspiToolkit toolkit)
{
    if (toolkit != AtspiToolkit::Qt && text.contains(u';')) // mnemonic; path from the menu bar; accelerator
        return KeyBinding::parseAccelerator(text.section(u';', 2, 2).trimmed());
    if (toolkit == AtspiToolkit::Gtk || toolkit == AtspiToolkit::Bridge || text.startsWith(u'<'))
        return std::nullopt;
    return parsePortableText(text, name);
}

} // namespace tarnwick
