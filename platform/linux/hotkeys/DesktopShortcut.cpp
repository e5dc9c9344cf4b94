// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopShortcut.h"

#include "platform/linux/input/KeysymNames.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;

constexpr quint16 AboveTabKeyCode = 49;
constexpr QLatin1StringView Backtab = "backtab"_L1;

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

/// What the portable form of Qt calls a key that neither types a character of its name nor counts up from F1,
/// in small letters. Some keys have two names.
struct NamedKey
{
    QLatin1StringView name;
    quint32 keysym;
};

constexpr NamedKey NamedKeys[] = {
    {"esc"_L1, XKB_KEY_Escape},
    {"escape"_L1, XKB_KEY_Escape},
    {"tab"_L1, XKB_KEY_Tab},
    {Backtab, XKB_KEY_Tab},
    {"backspace"_L1, XKB_KEY_BackSpace},
    {"return"_L1, XKB_KEY_Return},
    {"enter"_L1, XKB_KEY_KP_Enter},
    {"ins"_L1, XKB_KEY_Insert},
    {"insert"_L1, XKB_KEY_Insert},
    {"del"_L1, XKB_KEY_Delete},
    {"delete"_L1, XKB_KEY_Delete},
    {"pause"_L1, XKB_KEY_Pause},
    {"print"_L1, XKB_KEY_Print},
    {"print screen"_L1, XKB_KEY_Print},
    {"sysreq"_L1, XKB_KEY_Sys_Req},
    {"system request"_L1, XKB_KEY_Sys_Req},
    {"home"_L1, XKB_KEY_Home},
    {"end"_L1, XKB_KEY_End},
    {"left"_L1, XKB_KEY_Left},
    {"up"_L1, XKB_KEY_Up},
    {"right"_L1, XKB_KEY_Right},
    {"down"_L1, XKB_KEY_Down},
    {"pgup"_L1, XKB_KEY_Page_Up},
    {"page up"_L1, XKB_KEY_Page_Up},
    {"pgdown"_L1, XKB_KEY_Page_Down},
    {"page down"_L1, XKB_KEY_Page_Down},
    {"menu"_L1, XKB_KEY_Menu},
    {"help"_L1, XKB_KEY_Help},
    {"meta"_L1, XKB_KEY_Super_L},
    {"capslock"_L1, XKB_KEY_Caps_Lock},
    {"caps lock"_L1, XKB_KEY_Caps_Lock},
    {"numlock"_L1, XKB_KEY_Num_Lock},
    {"num lock"_L1, XKB_KEY_Num_Lock},
    {"number lock"_L1, XKB_KEY_Num_Lock},
    {"scrolllock"_L1, XKB_KEY_Scroll_Lock},
    {"scroll lock"_L1, XKB_KEY_Scroll_Lock},
    {"space"_L1, XKB_KEY_space},
    {"volume up"_L1, XKB_KEY_XF86AudioRaiseVolume},
    {"volume down"_L1, XKB_KEY_XF86AudioLowerVolume},
    {"volume mute"_L1, XKB_KEY_XF86AudioMute},
};

constexpr struct
{
    QLatin1StringView prefix;
    quint32 modifiers;
} PortableModifiers[] = {
    {"meta+"_L1, Command}, {"ctrl+"_L1, Control}, {"alt+"_L1, Option},
    {"shift+"_L1, Shift},  {"num+"_L1, 0}, // the keypad's keys are told from others, but grabbed with them
};

/// The modifier keys before the key's name, which are taken away from `text`.
quint32 takeModifiers(QStringView& text)
{
    quint32 modifiers = 0;
    for (;;) {
        const auto* const next = std::ranges::find_if(
            PortableModifiers, [text](const auto& modifier) { return text.startsWith(modifier.prefix); });
        if (next == std::end(PortableModifiers))
            return modifiers;
        modifiers |= next->modifiers;
        text = text.sliced(next->prefix.size());
    }
}

/// XKB_KEY_NoSymbol for a name that no key has. `name` is in small letters.
quint32 keysymOfPortableName(QStringView name)
{
    if (name.size() == 1) // a character, which Qt takes for its capital
        return xkb_keysym_to_lower(xkb_utf32_to_keysym(name.front().toUpper().unicode()));
    bool isNumber = false;
    const uint number = name.startsWith(u'f') ? name.sliced(1).toUInt(&isNumber) : 0;
    if (isNumber)
        return number >= 1 && number <= 35 ? XKB_KEY_F1 + number - 1 : XKB_KEY_NoSymbol;
    const auto* const named =
        std::ranges::find_if(NamedKeys, [name](const NamedKey& key) { return key.name == name; });
    return named == std::end(NamedKeys) ? XKB_KEY_NoSymbol : named->keysym;
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

// Not by QKeySequence, which compares every name with hundreds: a file of unknown ones would take it minutes.
std::optional<DesktopShortcut> DesktopShortcut::ofPortableText(const QString& text)
{
    const QString small = text.trimmed().toLower();
    QStringView name = small;
    DesktopShortcut shortcut;
    shortcut.modifiers = takeModifiers(name);
    shortcut.keysym = keysymOfPortableName(name);
    if (shortcut.keysym == XKB_KEY_NoSymbol)
        return std::nullopt;
    if (name == Backtab)
        shortcut.modifiers |= Shift;
    return shortcut;
}

} // namespace tarnwick
