// SPDX-License-Identifier: MIT
#include "platform/linux/globalkeys/TriggerKey.h"

#include "platform/linux/keys/KeyCodes.h"
#include "shortcut/KeyboardLayout.h"
#include "shortcut/ModifierFlags.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

/// A key by its place. What it types is said for a keyboard of the United States.
struct Place
{
    enum Kind : quint8 { Types, Acts, Keypad };

    quint16 code; ///< X key code
    Kind kind;
    Qt::Key qtKey;
    QLatin1StringView evdevName;
    QLatin1StringView keysym;
};

// clang-format off
constexpr Place Places[] = {
    {9, Place::Acts, Qt::Key_Escape, "ESC"_L1, "Escape"_L1},
    {10, Place::Types, Qt::Key_1, "1"_L1, "1"_L1}, {11, Place::Types, Qt::Key_2, "2"_L1, "2"_L1},
    {12, Place::Types, Qt::Key_3, "3"_L1, "3"_L1}, {13, Place::Types, Qt::Key_4, "4"_L1, "4"_L1},
    {14, Place::Types, Qt::Key_5, "5"_L1, "5"_L1}, {15, Place::Types, Qt::Key_6, "6"_L1, "6"_L1},
    {16, Place::Types, Qt::Key_7, "7"_L1, "7"_L1}, {17, Place::Types, Qt::Key_8, "8"_L1, "8"_L1},
    {18, Place::Types, Qt::Key_9, "9"_L1, "9"_L1}, {19, Place::Types, Qt::Key_0, "0"_L1, "0"_L1},
    {20, Place::Types, Qt::Key_Minus, "MINUS"_L1, "minus"_L1},
    {21, Place::Types, Qt::Key_Equal, "EQUAL"_L1, "equal"_L1},
    {22, Place::Acts, Qt::Key_Backspace, "BACKSPACE"_L1, "BackSpace"_L1},
    {23, Place::Acts, Qt::Key_Tab, "TAB"_L1, "Tab"_L1},
    {24, Place::Types, Qt::Key_Q, "Q"_L1, "q"_L1}, {25, Place::Types, Qt::Key_W, "W"_L1, "w"_L1},
    {26, Place::Types, Qt::Key_E, "E"_L1, "e"_L1}, {27, Place::Types, Qt::Key_R, "R"_L1, "r"_L1},
    {28, Place::Types, Qt::Key_T, "T"_L1, "t"_L1}, {29, Place::Types, Qt::Key_Y, "Y"_L1, "y"_L1},
    {30, Place::Types, Qt::Key_U, "U"_L1, "u"_L1}, {31, Place::Types, Qt::Key_I, "I"_L1, "i"_L1},
    {32, Place::Types, Qt::Key_O, "O"_L1, "o"_L1}, {33, Place::Types, Qt::Key_P, "P"_L1, "p"_L1},
    {34, Place::Types, Qt::Key_BracketLeft, "LEFTBRACE"_L1, "bracketleft"_L1},
    {35, Place::Types, Qt::Key_BracketRight, "RIGHTBRACE"_L1, "bracketright"_L1},
    {36, Place::Acts, Qt::Key_Return, "ENTER"_L1, "Return"_L1},
    {38, Place::Types, Qt::Key_A, "A"_L1, "a"_L1}, {39, Place::Types, Qt::Key_S, "S"_L1, "s"_L1},
    {40, Place::Types, Qt::Key_D, "D"_L1, "d"_L1}, {41, Place::Types, Qt::Key_F, "F"_L1, "f"_L1},
    {42, Place::Types, Qt::Key_G, "G"_L1, "g"_L1}, {43, Place::Types, Qt::Key_H, "H"_L1, "h"_L1},
    {44, Place::Types, Qt::Key_J, "J"_L1, "j"_L1}, {45, Place::Types, Qt::Key_K, "K"_L1, "k"_L1},
    {46, Place::Types, Qt::Key_L, "L"_L1, "l"_L1},
    {47, Place::Types, Qt::Key_Semicolon, "SEMICOLON"_L1, "semicolon"_L1},
    {48, Place::Types, Qt::Key_Apostrophe, "APOSTROPHE"_L1, "apostrophe"_L1},
    {49, Place::Types, Qt::Key_QuoteLeft, "GRAVE"_L1, "grave"_L1},
    {51, Place::Types, Qt::Key_Backslash, "BACKSLASH"_L1, "backslash"_L1},
    {52, Place::Types, Qt::Key_Z, "Z"_L1, "z"_L1}, {53, Place::Types, Qt::Key_X, "X"_L1, "x"_L1},
    {54, Place::Types, Qt::Key_C, "C"_L1, "c"_L1}, {55, Place::Types, Qt::Key_V, "V"_L1, "v"_L1},
    {56, Place::Types, Qt::Key_B, "B"_L1, "b"_L1}, {57, Place::Types, Qt::Key_N, "N"_L1, "n"_L1},
    {58, Place::Types, Qt::Key_M, "M"_L1, "m"_L1},
    {59, Place::Types, Qt::Key_Comma, "COMMA"_L1, "comma"_L1},
    {60, Place::Types, Qt::Key_Period, "DOT"_L1, "period"_L1},
    {61, Place::Types, Qt::Key_Slash, "SLASH"_L1, "slash"_L1},
    {63, Place::Keypad, Qt::Key_Asterisk, "KPASTERISK"_L1, "KP_Multiply"_L1},
    {65, Place::Acts, Qt::Key_Space, "SPACE"_L1, "space"_L1},
    {67, Place::Acts, Qt::Key_F1, "F1"_L1, "F1"_L1}, {68, Place::Acts, Qt::Key_F2, "F2"_L1, "F2"_L1},
    {69, Place::Acts, Qt::Key_F3, "F3"_L1, "F3"_L1}, {70, Place::Acts, Qt::Key_F4, "F4"_L1, "F4"_L1},
    {71, Place::Acts, Qt::Key_F5, "F5"_L1, "F5"_L1}, {72, Place::Acts, Qt::Key_F6, "F6"_L1, "F6"_L1},
    {73, Place::Acts, Qt::Key_F7, "F7"_L1, "F7"_L1}, {74, Place::Acts, Qt::Key_F8, "F8"_L1, "F8"_L1},
    {75, Place::Acts, Qt::Key_F9, "F9"_L1, "F9"_L1}, {76, Place::Acts, Qt::Key_F10, "F10"_L1, "F10"_L1},
    {77, Place::Acts, Qt::Key_NumLock, "NUMLOCK"_L1, "Num_Lock"_L1},
    {79, Place::Keypad, Qt::Key_7, "KP7"_L1, "KP_7"_L1}, {80, Place::Keypad, Qt::Key_8, "KP8"_L1, "KP_8"_L1},
    {81, Place::Keypad, Qt::Key_9, "KP9"_L1, "KP_9"_L1},
    {82, Place::Keypad, Qt::Key_Minus, "KPMINUS"_L1, "KP_Subtract"_L1},
    {83, Place::Keypad, Qt::Key_4, "KP4"_L1, "KP_4"_L1}, {84, Place::Keypad, Qt::Key_5, "KP5"_L1, "KP_5"_L1},
    {85, Place::Keypad, Qt::Key_6, "KP6"_L1, "KP_6"_L1},
    {86, Place::Keypad, Qt::Key_Plus, "KPPLUS"_L1, "KP_Add"_L1},
    {87, Place::Keypad, Qt::Key_1, "KP1"_L1, "KP_1"_L1}, {88, Place::Keypad, Qt::Key_2, "KP2"_L1, "KP_2"_L1},
    {89, Place::Keypad, Qt::Key_3, "KP3"_L1, "KP_3"_L1}, {90, Place::Keypad, Qt::Key_0, "KP0"_L1, "KP_0"_L1},
    {91, Place::Keypad, Qt::Key_Period, "KPDOT"_L1, "KP_Decimal"_L1},
    {94, Place::Types, Qt::Key_Less, "102ND"_L1, "less"_L1},
    {95, Place::Acts, Qt::Key_F11, "F11"_L1, "F11"_L1}, {96, Place::Acts, Qt::Key_F12, "F12"_L1, "F12"_L1},
    {104, Place::Keypad, Qt::Key_Enter, "KPENTER"_L1, "KP_Enter"_L1},
    {106, Place::Keypad, Qt::Key_Slash, "KPSLASH"_L1, "KP_Divide"_L1},
    {110, Place::Acts, Qt::Key_Home, "HOME"_L1, "Home"_L1},
    {111, Place::Acts, Qt::Key_Up, "UP"_L1, "Up"_L1},
    {112, Place::Acts, Qt::Key_PageUp, "PAGEUP"_L1, "Prior"_L1},
    {113, Place::Acts, Qt::Key_Left, "LEFT"_L1, "Left"_L1},
    {114, Place::Acts, Qt::Key_Right, "RIGHT"_L1, "Right"_L1},
    {115, Place::Acts, Qt::Key_End, "END"_L1, "End"_L1},
    {116, Place::Acts, Qt::Key_Down, "DOWN"_L1, "Down"_L1},
    {117, Place::Acts, Qt::Key_PageDown, "PAGEDOWN"_L1, "Next"_L1},
    {118, Place::Acts, Qt::Key_Insert, "INSERT"_L1, "Insert"_L1},
    {119, Place::Acts, Qt::Key_Delete, "DELETE"_L1, "Delete"_L1},
    {121, Place::Acts, Qt::Key_VolumeMute, "MUTE"_L1, "XF86AudioMute"_L1},
    {122, Place::Acts, Qt::Key_VolumeDown, "VOLUMEDOWN"_L1, "XF86AudioLowerVolume"_L1},
    {123, Place::Acts, Qt::Key_VolumeUp, "VOLUMEUP"_L1, "XF86AudioRaiseVolume"_L1},
    {125, Place::Keypad, Qt::Key_Equal, "KPEQUAL"_L1, "KP_Equal"_L1},
    {129, Place::Keypad, Qt::Key_Comma, "KPCOMMA"_L1, "KP_Separator"_L1},
    {135, Place::Acts, Qt::Key_Menu, "COMPOSE"_L1, "Menu"_L1},
    {191, Place::Acts, Qt::Key_F13, "F13"_L1, "F13"_L1}, {192, Place::Acts, Qt::Key_F14, "F14"_L1, "F14"_L1},
    {193, Place::Acts, Qt::Key_F15, "F15"_L1, "F15"_L1}, {194, Place::Acts, Qt::Key_F16, "F16"_L1, "F16"_L1},
    {195, Place::Acts, Qt::Key_F17, "F17"_L1, "F17"_L1}, {196, Place::Acts, Qt::Key_F18, "F18"_L1, "F18"_L1},
    {197, Place::Acts, Qt::Key_F19, "F19"_L1, "F19"_L1}, {198, Place::Acts, Qt::Key_F20, "F20"_L1, "F20"_L1},
};
// clang-format on

constexpr quint32 ShiftHeld = CarbonShiftKey;

const Place* placeOf(quint16 code)
{
    const auto* const found =
        std::ranges::find_if(Places, [code](const Place& place) { return place.code == code; });
    return found == std::end(Places) ? nullptr : found;
}

/// A letter of Latin script, a digit, or a sign: every compositor knows them, whichever layout is on.
bool isLatin(const QString& text)
{
    if (text.size() != 1)
        return false;
    const QChar character = text.front();
    return character.isPrint() && !character.isSpace() &&
           (character.script() == QChar::Script_Latin || character.script() == QChar::Script_Common);
}

QString keysymNameOf(QChar character)
{
    char name[64] = "";
    const xkb_keysym_t keysym = xkb_utf32_to_keysym(character.unicode());
    return xkb_keysym_get_name(keysym, name, sizeof name) > 0 ? QString::fromLatin1(name) : QString();
}

int qtKeyOf(QChar character)
{
    return character.toUpper().unicode();
}

} // namespace

QString textOfCurrentLayout(quint16 virtualKeyCode, bool shift)
{
    constexpr quint16 DisplayAction = 3;
    constexpr quint32 NoDeadKeys = 1;
    const auto* const port = KeyboardLayout::sharedOrNull();
    const auto layout = port ? port->copyCurrentKeyboardInputSource() : nullptr;
    quint32 deadKey = 0;
    return layout ? layout
                        ->keyTranslate(virtualKeyCode, DisplayAction, shift ? ShiftHeld : 0,
                                       port->keyboardType(), NoDeadKeys, deadKey)
                        .value_or(QString())
                  : QString();
}

std::optional<TriggerKey> TriggerKey::of(quint32 keyCode, quint32 modifiers, const KeyTexts& texts)
{
    const auto code = x11KeyCodeOf(keyCode);
    const Place* place = code ? placeOf(*code) : nullptr;
    if (!place)
        return std::nullopt;
    TriggerKey key{(modifiers & CarbonControlKey) != 0,
                   (modifiers & CarbonShiftKey) != 0,
                   (modifiers & CarbonOptionKey) != 0,
                   (modifiers & CarbonCommandKey) != 0,
                   place->code,
                   place->evdevName,
                   place->keysym};
    key.isOnKeypad = place->kind == Place::Keypad;
    key.qtKey = place->qtKey;
    bool shiftIsUsedUp = false;
    if (place->kind == Place::Types) {
        const QString plain = texts(quint16(keyCode), false);
        const QString shifted = texts(quint16(keyCode), true);
        key.typesLatin = plain.isEmpty() || isLatin(plain); // without a layout it is that one
        if (!plain.isEmpty() && key.typesLatin) {
            key.keysym = keysymNameOf(plain.front());
            key.qtKey = qtKeyOf(plain.front());
            // KDE takes what is typed with Shift for the key, and a letter for the same in both cases.
            if (key.shift && isLatin(shifted) && qtKeyOf(shifted.front()) != key.qtKey) {
                key.qtKey = qtKeyOf(shifted.front());
                shiftIsUsedUp = true;
            }
        }
    }
    const Qt::KeyboardModifiers held = (key.control ? Qt::ControlModifier : Qt::NoModifier) |
                                       (key.alt ? Qt::AltModifier : Qt::NoModifier) |
                                       (key.super ? Qt::MetaModifier : Qt::NoModifier) |
                                       (key.shift && !shiftIsUsedUp ? Qt::ShiftModifier : Qt::NoModifier) |
                                       (key.isOnKeypad ? Qt::KeypadModifier : Qt::NoModifier);
    key.qtKey |= int(held);
    return key;
}

} // namespace tarnwick
