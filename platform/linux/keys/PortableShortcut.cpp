// SPDX-License-Identifier: MIT
#include "platform/linux/keys/PortableShortcut.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr QLatin1StringView Backtab = "backtab"_L1;

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
    {"eject"_L1, XKB_KEY_XF86Eject},
};

struct NamedModifier
{
    QLatin1StringView prefix;
    bool PortableShortcut::*modifier; ///< null: the keypad's keys are told from others, but are the same here
};

constexpr NamedModifier NamedModifiers[] = {
    {"meta+"_L1, &PortableShortcut::super},
    {"ctrl+"_L1, &PortableShortcut::control},
    {"alt+"_L1, &PortableShortcut::alt},
    {"shift+"_L1, &PortableShortcut::shift},
    {"num+"_L1, nullptr},
};

/// Takes the modifiers before the key's name away from `text`.
void takeModifiers(QStringView& text, PortableShortcut& shortcut)
{
    for (;;) {
        const auto* const next = std::ranges::find_if(
            NamedModifiers, [text](const NamedModifier& named) { return text.startsWith(named.prefix); });
        if (next == std::end(NamedModifiers))
            return;
        if (next->modifier)
            shortcut.*next->modifier = true;
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

// Not by QKeySequence, which compares every name with hundreds: a file of unknown ones would take it minutes.
std::optional<PortableShortcut> PortableShortcut::parse(const QString& text)
{
    const QString small = text.trimmed().toLower();
    QStringView name = small;
    PortableShortcut shortcut;
    takeModifiers(name, shortcut);
    shortcut.keysym = keysymOfPortableName(name);
    if (shortcut.keysym == XKB_KEY_NoSymbol)
        return std::nullopt;
    if (name == Backtab)
        shortcut.shift = true;
    return shortcut;
}

} // namespace tarnwick
