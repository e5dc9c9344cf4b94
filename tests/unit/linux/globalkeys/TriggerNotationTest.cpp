// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/TriggerNotation.h"

#include <QMap>
#include <gtest/gtest.h>

#include <array>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 Command = 0x100;
constexpr quint32 Shift = 0x200;
constexpr quint32 Option = 0x800;
constexpr quint32 Control = 0x1000;
constexpr quint32 All = Command | Shift | Option | Control;

// Virtual key codes.
constexpr quint32 A = 0;
constexpr quint32 Z = 6;
constexpr quint32 One = 18;
constexpr quint32 Minus = 27;
constexpr quint32 Comma = 43;
constexpr quint32 LeftBracket = 33;
constexpr quint32 Space = 49;
constexpr quint32 Return = 36;
constexpr quint32 Delete = 51;
constexpr quint32 ForwardDelete = 117;
constexpr quint32 PageDown = 121;
constexpr quint32 UpArrow = 126;
constexpr quint32 F5 = 96;
constexpr quint32 F20 = 90;
constexpr quint32 Keypad5 = 87;
constexpr quint32 KeypadEnter = 76;
constexpr quint32 ShiftKey = 56;

/// What keys type alone and with Shift.
using Layout = QMap<quint16, std::array<QString, 2>>;

const Layout& us()
{
    static const Layout layout{{A, {u"a"_s, u"A"_s}},      {Z, {u"z"_s, u"Z"_s}},
                               {One, {u"1"_s, u"!"_s}},    {Minus, {u"-"_s, u"_"_s}},
                               {Comma, {u","_s, u"<"_s}},  {LeftBracket, {u"["_s, u"{"_s}},
                               {Keypad5, {u"5"_s, u"5"_s}}};
    return layout;
}
const Layout& german()
{
    static const Layout layout{
        {Z, {u"y"_s, u"Y"_s}}, {LeftBracket, {u"ü"_s, u"Ü"_s}}, {Minus, {u"ß"_s, u"?"_s}}};
    return layout;
}
const Layout& russian()
{
    static const Layout layout{{Z, {u"я"_s, u"Я"_s}}, {One, {u"1"_s, u"!"_s}}, {Comma, {u"б"_s, u"Б"_s}}};
    return layout;
}

std::optional<TriggerKey> keyOn(const Layout& layout, quint32 keyCode, quint32 modifiers)
{
    return TriggerKey::of(keyCode, modifiers,
                          [&](quint16 code, bool shift) { return layout.value(code)[shift ? 1 : 0]; });
}

TriggerKey key(quint32 keyCode, quint32 modifiers, const Layout& layout = us())
{
    const auto found = keyOn(layout, keyCode, modifiers);
    EXPECT_TRUE(found) << keyCode;
    return found.value_or(TriggerKey());
}

QString line(Compositor compositor, const TriggerKey& triggerKey)
{
    const auto found = trigger_notation::lineFor(compositor, triggerKey);
    return found ? found->text : QString();
}

QString buttonLine(Compositor compositor, quint64 button)
{
    const auto found = trigger_notation::lineForButton(compositor, button);
    return found ? found->text : QString();
}

TEST(TriggerNotation, qtKey_isWhatTheLayoutTypesWithTheModifiers)
{
    const struct
    {
        quint32 code, modifiers;
        const Layout& layout;
        int qtKey;
    } rows[] = {
        {Z, Option, us(), 0x0800005a},
        {Z, Command, us(), 0x1000005a},
        {Z, Control, us(), 0x0400005a},
        {Z, Shift, us(), 0x0200005a},
        {Z, All, us(), 0x1e00005a},
        {Z, Option, german(), 0x08000059},           // Y
        {LeftBracket, Option, german(), 0x080000dc}, // U with two dots
        {Z, Option, russian(), 0x0800005a},          // by its place
        {One, Option, us(), 0x08000031},
        {One, Option | Shift, us(), 0x08000021},        // an exclamation mark, Shift used up
        {Minus, Command | Shift, german(), 0x1000003f}, // a question mark
        {Comma, Control, us(), 0x0400002c},
        {Space, Option, us(), 0x08000020},
        {Return, Option, us(), 0x09000004},
        {Delete, Control, us(), 0x05000003}, // Backspace
        {ForwardDelete, Control, us(), 0x05000007},
        {PageDown, Control | Shift, us(), 0x07000017},
        {UpArrow, Command, us(), 0x11000013},
        {F5, 0, us(), 0x01000034},
        {F5, Option, us(), 0x09000034},
        {F20, Option, us(), 0x09000043},
        {Keypad5, Option, us(), 0x28000035},
        {KeypadEnter, Control, us(), 0x25000005},
    };
    for (const auto& row : rows)
        EXPECT_EQ(key(row.code, row.modifiers, row.layout).qtKey, row.qtKey)
            << row.code << ' ' << row.modifiers;
}

TEST(TriggerNotation, keysWithoutAName_areNone)
{
    for (const quint32 code : {ShiftKey, 127U, 128U, 0xFFFFFFFFU})
        EXPECT_FALSE(keyOn(us(), code, Option)) << code;
}

TEST(TriggerNotation, everyKeyThatCanBeRecorded_hasEveryName)
{
    // All keys of a keyboard but the modifiers, Fn, and four that only Japanese and Korean ones have.
    const QList<quint32> without{52, 54, 55, 56, 57, 58, 59,  60,  61,  62,  63,
                                 66, 68, 70, 77, 93, 94, 102, 104, 108, 112, 127};
    for (quint32 code = 0; code < 128; ++code) {
        const auto found = keyOn(us(), code, Option);
        EXPECT_EQ(found.has_value(), !without.contains(code)) << code;
        if (!found)
            continue;
        EXPECT_FALSE(found->keysym.isEmpty()) << code;
        EXPECT_FALSE(found->evdevName.isEmpty()) << code;
        EXPECT_GT(found->code, 8) << code;
        EXPECT_NE(found->qtKey & 0x01ffffff, 0) << code;
    }
}

TEST(TriggerNotation, portal_hasItsOwnNamesForModifiers)
{
    using trigger_notation::portalTrigger;
    EXPECT_EQ(portalTrigger(key(Z, Option)), u"ALT+z"_s);
    EXPECT_EQ(portalTrigger(key(Z, Command)), u"LOGO+z"_s);
    EXPECT_EQ(portalTrigger(key(Z, All)), u"LOGO+CTRL+ALT+SHIFT+z"_s);
    EXPECT_EQ(portalTrigger(key(F5, 0)), u"F5"_s);
    EXPECT_EQ(portalTrigger(key(PageDown, Control)), u"CTRL+Next"_s);
    EXPECT_EQ(portalTrigger(key(Comma, Option)), u"ALT+comma"_s);
    EXPECT_EQ(portalTrigger(key(Keypad5, Option)), u"ALT+KP_5"_s);
    EXPECT_EQ(portalTrigger(key(Z, Option, german())), u"ALT+y"_s);
    EXPECT_EQ(portalTrigger(key(LeftBracket, Option, german())), u"ALT+udiaeresis"_s);
    EXPECT_EQ(portalTrigger(key(Z, Option, russian())), u"ALT+z"_s) << "what its place types elsewhere";
}

TEST(TriggerNotation, sway)
{
    const auto sway = [](const TriggerKey& it) { return line(Compositor::Sway, it); };
    EXPECT_EQ(sway(key(Z, Option)),
              u"bindsym Mod1+z exec gapplication action example.quorlane.Tarnwick pop-up"_s);
    const QString command = u" exec gapplication action example.quorlane.Tarnwick pop-up"_s;
    EXPECT_EQ(sway(key(Z, All)), u"bindsym Mod4+Control+Mod1+Shift+z"_s + command);
    EXPECT_EQ(sway(key(F5, 0)), u"bindsym F5"_s + command);
    EXPECT_EQ(sway(key(One, Option | Shift)), u"bindsym Mod1+Shift+1"_s + command);
    EXPECT_EQ(sway(key(Minus, Control)), u"bindsym Control+minus"_s + command);
    EXPECT_EQ(sway(key(PageDown, Command)), u"bindsym Mod4+Next"_s + command);
    EXPECT_EQ(sway(key(Z, Option, german())), u"bindsym Mod1+y"_s + command);
    EXPECT_EQ(sway(key(Keypad5, Option)), u"bindcode Mod1+84"_s + command) << "whether Num Lock is on or not";
    EXPECT_EQ(sway(key(Z, Option, russian())), u"bindcode Mod1+52"_s + command) << "whichever layout is on";
    EXPECT_EQ(sway(key(One, Option, russian())), u"bindsym Mod1+1"_s + command);
    EXPECT_EQ(trigger_notation::lineFor(Compositor::Sway, key(Z, Option))->place, u"~/.config/sway/config"_s);
}

TEST(TriggerNotation, labwc)
{
    const auto labwc = [](const TriggerKey& it) { return line(Compositor::Labwc, it); };
    EXPECT_EQ(labwc(key(Z, Option)),
              u"<keybind key=\"A-z\"><action name=\"Execute\" command=\"gapplication action "
              "example.quorlane.Tarnwick pop-up\"/></keybind>"_s);
    EXPECT_TRUE(labwc(key(Z, All)).startsWith(u"<keybind key=\"W-C-A-S-z\">"_s));
    EXPECT_TRUE(labwc(key(Minus, Option)).startsWith(u"<keybind key=\"A-minus\">"_s));
    EXPECT_TRUE(labwc(key(Keypad5, Option)).startsWith(u"<keybind key=\"A-KP_5\">"_s));
    EXPECT_TRUE(labwc(key(F5, 0)).startsWith(u"<keybind key=\"F5\">"_s));
}

TEST(TriggerNotation, niri)
{
    const auto niri = [](const TriggerKey& it) { return line(Compositor::Niri, it); };
    EXPECT_EQ(niri(key(Z, Option)),
              u"Alt+z { spawn \"gapplication\" \"action\" \"example.quorlane.Tarnwick\" \"pop-up\"; }"_s);
    EXPECT_TRUE(niri(key(PageDown, All)).startsWith(u"Super+Ctrl+Alt+Shift+Next { "_s));
}

TEST(TriggerNotation, river)
{
    const auto river = [](const TriggerKey& it) { return line(Compositor::River, it); };
    EXPECT_EQ(river(key(Z, Option)),
              u"riverctl map normal Alt z spawn 'gapplication action example.quorlane.Tarnwick pop-up'"_s);
    EXPECT_TRUE(river(key(Z, All)).startsWith(u"riverctl map normal Super+Control+Alt+Shift z spawn "_s));
    EXPECT_TRUE(river(key(F5, 0)).startsWith(u"riverctl map normal None F5 spawn "_s));
}

TEST(TriggerNotation, hyprland)
{
    const auto hyprland = [](const TriggerKey& it) { return line(Compositor::Hyprland, it); };
    EXPECT_EQ(hyprland(key(Z, Option)),
              u"bind = ALT, z, exec, gapplication action example.quorlane.Tarnwick pop-up"_s);
    EXPECT_TRUE(hyprland(key(PageDown, All)).startsWith(u"bind = SUPER CTRL ALT SHIFT, Next, exec, "_s));
    EXPECT_TRUE(hyprland(key(F5, 0)).startsWith(u"bind = , F5, exec, "_s));
    EXPECT_TRUE(hyprland(key(Z, Option, russian())).startsWith(u"bind = ALT, code:52, exec, "_s));
}

TEST(TriggerNotation, wayfire)
{
    const auto wayfire = [](const TriggerKey& it) { return line(Compositor::Wayfire, it); };
    EXPECT_EQ(wayfire(key(Z, Option)),
              u"binding_tarnwick = <alt> KEY_Z\n"
              "command_tarnwick = gapplication action example.quorlane.Tarnwick pop-up"_s);
    EXPECT_TRUE(wayfire(key(Z, All, german()))
                    .startsWith(u"binding_tarnwick = <super> <ctrl> <alt> <shift> KEY_Z\n"_s))
        << "by its place";
    EXPECT_TRUE(wayfire(key(PageDown, Control)).startsWith(u"binding_tarnwick = <ctrl> KEY_PAGEDOWN\n"_s));
    EXPECT_TRUE(wayfire(key(Keypad5, Control)).startsWith(u"binding_tarnwick = <ctrl> KEY_KP5\n"_s));
}

TEST(TriggerNotation, withoutAKnownConfiguration_thereIsNoLine)
{
    for (const Compositor other : {Compositor::Unknown, Compositor::KWin, Compositor::Mutter}) {
        EXPECT_FALSE(trigger_notation::lineFor(other, key(Z, Option)));
        EXPECT_FALSE(trigger_notation::lineForButton(other, 3));
    }
    EXPECT_EQ(trigger_notation::popUpCommand(), u"gapplication action example.quorlane.Tarnwick pop-up"_s);
}

TEST(TriggerNotation, mouseButtons)
{
    const QString command = u"gapplication action example.quorlane.Tarnwick pop-up-by-pointer"_s;
    EXPECT_EQ(buttonLine(Compositor::Sway, 3), u"bindsym --whole-window button8 exec "_s + command);
    EXPECT_EQ(buttonLine(Compositor::Sway, 4), u"bindsym --whole-window button9 exec "_s + command);
    EXPECT_EQ(buttonLine(Compositor::Sway, 2), u"bindsym --whole-window button2 exec "_s + command);
    EXPECT_EQ(buttonLine(Compositor::Sway, 5), u"bindsym --whole-window BTN_FORWARD exec "_s + command);
    EXPECT_EQ(buttonLine(Compositor::Labwc, 3),
              u"<context name=\"All\"><mousebind button=\"Side\" action=\"Press\"><action name=\"Execute\" "
              "command=\"%1\"/></mousebind></context>"_s.arg(command));
    EXPECT_TRUE(buttonLine(Compositor::Labwc, 2).contains(u"button=\"Middle\""_s));
    EXPECT_EQ(buttonLine(Compositor::Hyprland, 3), u"bind = , mouse:275, exec, "_s + command);
    EXPECT_EQ(buttonLine(Compositor::Hyprland, 2), u"bind = , mouse:274, exec, "_s + command);
    EXPECT_EQ(
        buttonLine(Compositor::Niri, 3),
        u"MouseBack { spawn \"gapplication\" \"action\" \"example.quorlane.Tarnwick\" \"pop-up-by-pointer\"; }"_s);
    EXPECT_TRUE(buttonLine(Compositor::Niri, 4).startsWith(u"MouseForward { "_s));
    EXPECT_TRUE(buttonLine(Compositor::Niri, 7).isEmpty()) << "it has no name for it";
    EXPECT_EQ(buttonLine(Compositor::River, 3),
              u"riverctl map-pointer normal None BTN_SIDE spawn '%1'"_s.arg(command));
    EXPECT_EQ(buttonLine(Compositor::Wayfire, 4),
              u"binding_tarnwick_button = BTN_EXTRA\ncommand_tarnwick_button = "_s + command);
    for (const quint64 no : {0ULL, 1ULL, 8ULL, 25ULL, ~0ULL})
        EXPECT_TRUE(buttonLine(Compositor::Sway, no).isEmpty()) << no;
}

} // namespace
