// SPDX-License-Identifier: MIT
#include "platform/linux/keys/XkbKeymap.h"

#include "foundation/Event.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

// X key codes of physical keys.
constexpr quint16 Digit1 = 10;
constexpr quint16 Minus = 20;
constexpr quint16 KeyQ = 24;
constexpr quint16 KeyY = 29;
constexpr quint16 KeyA = 38;
constexpr quint16 Backquote = 49;
constexpr quint16 KeyZ = 52;
constexpr quint16 F1 = 67;
constexpr quint16 Numpad7 = 79;
constexpr quint16 NumpadAdd = 86;
constexpr quint16 ShiftLeft = 50;
constexpr quint16 ControlLeft = 37;
constexpr quint16 AltLeft = 64;
constexpr quint16 AltRight = 108;
constexpr quint16 SuperLeft = 133;
constexpr quint16 CapsLock = 66;
constexpr quint16 Equal = 21;

struct TextRow
{
    const char* sentence;
    QByteArray layout;
    quint16 key;
    bool shift;
    QString text;
};

TEST(XkbKeymap, keysymsOfAKey_areThoseOfAllItsGroupsAndLevels)
{
    const auto keymap = XkbKeymap::ofNames("us,ru");
    ASSERT_TRUE(keymap);
    const QList<quint32> ofA = keymap->keysymsOf(KeyA);
    for (const xkb_keysym_t keysym : {XKB_KEY_a, XKB_KEY_A, XKB_KEY_Cyrillic_ef, XKB_KEY_Cyrillic_EF})
        EXPECT_TRUE(ofA.contains(keysym)) << keysym;
    EXPECT_TRUE(keymap->keysymsOf(AltLeft).contains(XKB_KEY_Alt_L));
    EXPECT_TRUE(keymap->keysymsOf(60'000).isEmpty()) << "there is no such key";
}

TEST(XkbKeymap, mapWithAnotherGroup_typesWithThat_andTheFirstOneAsBefore)
{
    const auto us = XkbKeymap::ofNames("us,ru");
    ASSERT_TRUE(us);
    const auto ru = us->withGroup(1);
    EXPECT_EQ(ru->text(KeyA, false, false), u"ф"_s);
    EXPECT_EQ(us->text(KeyA, false, false), u"a"_s);
}

TEST(XkbKeymap, text_isWhatTheKeyTypesOnTheLayout)
{
    const TextRow rows[] = {
        {"a letter", "us", KeyZ, false, u"z"_s},
        {"its capital", "us", KeyZ, true, u"Z"_s},
        {"the same key on a German keyboard", "de", KeyZ, false, u"y"_s},
        {"and the other way round", "de", KeyY, false, u"z"_s},
        {"a French letter", "fr", KeyQ, false, u"a"_s},
        {"a French digit needs Shift", "fr", Digit1, false, u"&"_s},
        {"and gets it", "fr", Digit1, true, u"1"_s},
        {"a Cyrillic letter", "ru", KeyA, false, u"ф"_s},
        {"a dead key types its accent", "de", Equal, false, u"´"_s},
        {"with Shift another", "de", Equal, true, u"`"_s},
        {"a dead circumflex", "de", Backquote, false, u"^"_s},
        {"a keypad digit, whether Num Lock is on or not", "us", Numpad7, false, u"7"_s},
        {"with Shift as well", "us", Numpad7, true, u"7"_s},
        {"a keypad sign", "us", NumpadAdd, false, u"+"_s},
        {"a function key types nothing", "us", F1, false, u""_s},
        {"a modifier neither", "us", ShiftLeft, false, u""_s},
        {"nor a key code out of range", "us", 60000, false, u""_s},
    };
    for (const TextRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        const auto keymap = XkbKeymap::ofNames(row.layout);
        ASSERT_TRUE(keymap);
        EXPECT_EQ(keymap->text(row.key, row.shift, false), row.text);
    }
}

TEST(XkbKeymap, alt_leavesTheTextAsItIs)
{
    const auto keymap = XkbKeymap::ofNames("de");
    ASSERT_TRUE(keymap);
    EXPECT_EQ(keymap->text(KeyQ, false, true), u"q"_s);
    EXPECT_EQ(keymap->text(KeyQ, true, true), u"Q"_s);
}

TEST(XkbKeymap, group_choosesAmongTheLayouts)
{
    const auto keymap = XkbKeymap::ofNames("us,ru");
    ASSERT_TRUE(keymap);
    EXPECT_EQ(keymap->text(KeyA, false, false), u"a"_s);
    keymap->setGroup(1);
    EXPECT_EQ(keymap->text(KeyA, false, false), u"ф"_s);
}

struct ModifierRow
{
    const char* sentence;
    QByteArray layout;
    QByteArray options;
    quint16 key;
    quint64 modifier;
};

TEST(XkbKeymap, modifier_isWhatTheKeyIsAlone)
{
    const ModifierRow rows[] = {
        {"Shift", "us", "", ShiftLeft, ShiftKeyMask},
        {"Control", "us", "", ControlLeft, ControlKeyMask},
        {"Alt", "us", "", AltLeft, AlternateKeyMask},
        {"the right Alt key", "us", "", AltRight, AlternateKeyMask},
        {"which chooses the third level on many a keyboard", "de", "", AltRight, 0},
        {"Super", "us", "", SuperLeft, CommandKeyMask},
        {"Caps Lock has none", "us", "", CapsLock, 0},
        {"unless it is Control", "us", "ctrl:nocaps", CapsLock, ControlKeyMask},
        {"keys that have changed places", "us", "altwin:swap_alt_win", AltLeft, CommandKeyMask},
        {"Shift, though under Alt it chooses a layout", "us,de", "grp:alt_shift_toggle", ShiftLeft,
         ShiftKeyMask},
        {"Alt, though under Shift it does", "us,de", "grp:alt_shift_toggle", AltLeft, AlternateKeyMask},
        {"Control, though under Shift it does", "us,de", "grp:ctrl_shift_toggle", ControlLeft,
         ControlKeyMask},
        {"a key that does nothing else", "us,de", "grp:lalt_toggle", AltLeft, 0},
        {"a letter", "us", "", KeyZ, 0},
        {"a key code out of range", "us", "", 60000, 0},
    };
    for (const ModifierRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        const auto keymap = XkbKeymap::ofNames(row.layout, {}, row.options);
        ASSERT_TRUE(keymap);
        EXPECT_EQ(keymap->modifier(row.key), row.modifier);
        keymap->setGroup(row.layout.contains(',') ? 1 : 0);
        EXPECT_EQ(keymap->modifier(row.key), row.modifier) << "in the other group";
    }
}

TEST(XkbKeymap, unknownLayout_givesNone)
{
    EXPECT_FALSE(XkbKeymap::ofNames("no-such-layout"));
}

struct KeyRow
{
    const char* sentence;
    QByteArray layouts;
    xkb_keysym_t keysym;
    std::optional<quint16> key;
    bool shift;
};

TEST(XkbKeymap, keyOf_findsTheKeyThatGivesIt)
{
    const KeyRow rows[] = {
        {"a letter", "us", XKB_KEY_z, KeyZ, false},
        {"a capital is its letter", "us", XKB_KEY_Z, KeyZ, false},
        {"by layout", "de", XKB_KEY_z, KeyY, false},
        {"a sign behind Shift", "us", XKB_KEY_exclam, Digit1, true},
        {"a sign of its own key", "us", XKB_KEY_minus, Minus, false},
        {"a French digit is behind Shift", "fr", XKB_KEY_1, Digit1, true},
        {"a function key", "us", XKB_KEY_F1, F1, false},
        {"a Latin letter while Cyrillic is typed", "ru,us", XKB_KEY_z, KeyZ, false},
        {"what no key gives", "us", XKB_KEY_Cyrillic_ef, std::nullopt, false},
        {"nothing", "us", XKB_KEY_NoSymbol, std::nullopt, false},
    };
    for (const KeyRow& row : rows) {
        SCOPED_TRACE(row.sentence);
        const auto keymap = XkbKeymap::ofNames(row.layouts);
        ASSERT_TRUE(keymap);
        const auto key = keymap->keyOf(row.keysym);
        ASSERT_EQ(key.has_value(), row.key.has_value());
        if (key) {
            EXPECT_EQ(key->code, *row.key);
            EXPECT_EQ(key->shift, row.shift);
        }
    }
}

} // namespace
