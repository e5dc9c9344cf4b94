// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopShortcut.h"

#include "platform/linux/KeysymNames.h"

#include <QKeySequence>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;

constexpr quint16 AboveTabKeyCode = 49;

/// The modifier that a word in angle brackets names; nothing for one that no hot key has.
std::optional<quint32> modifierNamed(const QString& word)
{
    const QString name = word.toLower();
    if (name == u"primary" || name == u"control" || name == u"ctrl" || name == u"ctl")
        return Control;
    if (name == u"shift" || name == u"shft")
        return Shift;
    if (name == u"alt" || name == u"mod1" || name == u"meta") // Meta shares the Alt keys
        return Option;
    if (name == u"super" || name == u"mod4")
        return Command;
    if (name == u"release") // tells when it acts, not on what
        return 0;
    return std::nullopt;
}

/// Keys that neither type a character nor count up from F1.
struct NamedKey
{
    int key;
    quint32 keysym;
};

constexpr NamedKey NamedKeys[] = {
    {Qt::Key_Escape, XKB_KEY_Escape},
    {Qt::Key_Tab, XKB_KEY_Tab},
    {Qt::Key_Backtab, XKB_KEY_Tab},
    {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Return, XKB_KEY_Return},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Insert, XKB_KEY_Insert},
    {Qt::Key_Delete, XKB_KEY_Delete},
    {Qt::Key_Pause, XKB_KEY_Pause},
    {Qt::Key_Print, XKB_KEY_Print},
    {Qt::Key_SysReq, XKB_KEY_Sys_Req},
    {Qt::Key_Home, XKB_KEY_Home},
    {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},
    {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Right, XKB_KEY_Right},
    {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_PageUp, XKB_KEY_Page_Up},
    {Qt::Key_PageDown, XKB_KEY_Page_Down},
    {Qt::Key_Menu, XKB_KEY_Menu},
    {Qt::Key_Help, XKB_KEY_Help},
    {Qt::Key_Meta, XKB_KEY_Super_L},
    {Qt::Key_Super_L, XKB_KEY_Super_L},
    {Qt::Key_Super_R, XKB_KEY_Super_R},
    {Qt::Key_CapsLock, XKB_KEY_Caps_Lock},
    {Qt::Key_NumLock, XKB_KEY_Num_Lock},
    {Qt::Key_ScrollLock, XKB_KEY_Scroll_Lock},
    {Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume},
    {Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume},
    {Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute},
};

quint32 keysymOfQtKey(int key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return quint32(XKB_KEY_F1 + (key - Qt::Key_F1));
    for (const NamedKey& named : NamedKeys) {
        if (named.key == key)
            return named.keysym;
    }
    // A character, which Qt names by its capital.
    return key < Qt::Key_Escape ? xkb_keysym_to_lower(xkb_utf32_to_keysym(quint32(key)))
                                : quint32(XKB_KEY_NoSymbol);
}

} // namespace

std::optional<DesktopShortcut> DesktopShortcut::ofAccelerator(const QString& text)
{
    DesktopShortcut shortcut;
    qsizetype position = 0;
    while (position < text.size() && text.at(position) == u'<') {
        const qsizetype end = text.indexOf(u'>', position);
        const auto modifier =
            end < 0 ? std::nullopt : modifierNamed(text.mid(position + 1, end - position - 1));
        if (!modifier)
            return std::nullopt;
        shortcut.modifiers |= *modifier;
        position = end + 1;
    }
    const QString key = text.mid(position);
    if (key == u"Above_Tab") {
        shortcut.keyCode = AboveTabKeyCode;
    } else if (key.startsWith(u"0x"_s)) {
        bool number = false;
        shortcut.keyCode = key.mid(2).toUShort(&number, 16);
        if (!number || shortcut.keyCode == 0)
            return std::nullopt;
    } else {
        shortcut.keysym = xkb_keysym_to_lower(keysymNamed(key));
        if (shortcut.keysym == XKB_KEY_NoSymbol)
            return std::nullopt;
    }
    return shortcut;
}

std::optional<DesktopShortcut> DesktopShortcut::ofPortableText(const QString& text)
{
    const QKeySequence sequence = QKeySequence::fromString(text, QKeySequence::PortableText);
    if (sequence.count() != 1)
        return std::nullopt;
    const QKeyCombination combination = sequence[0];
    DesktopShortcut shortcut;
    shortcut.keysym = keysymOfQtKey(combination.key());
    if (shortcut.keysym == XKB_KEY_NoSymbol)
        return std::nullopt;
    const Qt::KeyboardModifiers modifiers = combination.keyboardModifiers();
    if (modifiers & Qt::MetaModifier)
        shortcut.modifiers |= Command;
    if ((modifiers & Qt::ShiftModifier) || combination.key() == Qt::Key_Backtab)
        shortcut.modifiers |= Shift;
    if (modifiers & Qt::AltModifier)
        shortcut.modifiers |= Option;
    if (modifiers & Qt::ControlModifier)
        shortcut.modifiers |= Control;
    return shortcut;
}

} // namespace tarnwick
