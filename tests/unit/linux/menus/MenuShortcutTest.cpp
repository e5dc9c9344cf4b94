// SPDX-License-Identifier: MIT
#include "platform/linux/menus/MenuShortcut.h"

#include "menu/GlyphLookUpTable.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

KeyBinding with(int modifiers, xkb_keysym_t key)
{
    return {(modifiers & 8) == 0, (modifiers & 2) != 0, (modifiers & 1) != 0, (modifiers & 4) != 0, key};
}

} // namespace

TEST(MenuShortcut, modifiers_areTheCodesThatTheTableKnows)
{
    for (int modifiers = 0; modifiers < 16; ++modifiers) {
        const auto shortcut = MenuShortcut::of(with(modifiers, XKB_KEY_s));
        // These would be shown as another shortcut: none is better than a wrong one.
        const bool wrong = QList<int>{5, 7, 8, 13, 14, 15}.contains(modifiers);
        ASSERT_EQ(shortcut.has_value(), !wrong) << modifiers;
        EXPECT_EQ(shortcut ? shortcut->modifiers : modifiers, modifiers);
    }
}

TEST(MenuShortcut, aFunctionKeyAlone_isNotReported)
{
    EXPECT_FALSE(MenuShortcut::of(with(8, XKB_KEY_F3)));
    EXPECT_TRUE(MenuShortcut::of(with(9, XKB_KEY_F3)));
}

TEST(MenuShortcut, characters_areReportedInUpperCase)
{
    const std::pair<xkb_keysym_t, QString> rows[] = {
        {XKB_KEY_n, u"N"_s},           {XKB_KEY_N, u"N"_s},      {XKB_KEY_plus, u"+"_s},
        {XKB_KEY_semicolon, u";"_s},   {XKB_KEY_5, u"5"_s},      {XKB_KEY_adiaeresis, u"\u00C4"_s},
        {XKB_KEY_ssharp, u"\u00DF"_s}, {XKB_KEY_KP_Add, u"+"_s}, {0x1000430, u"\u0410"_s},
    };
    for (const auto& [key, character] : rows) {
        const auto shortcut = MenuShortcut::of(with(0, key));
        ASSERT_TRUE(shortcut) << key;
        EXPECT_EQ(shortcut->character, character);
        EXPECT_FALSE(shortcut->glyph);
    }
}

TEST(MenuShortcut, namedKeys_areReportedAsGlyphsThatTheTableTurnsIntoThem)
{
    const std::pair<xkb_keysym_t, char16_t> rows[] = {
        {XKB_KEY_Return, 0x000D}, {XKB_KEY_BackSpace, 0x0008}, {XKB_KEY_Escape, 0x001B},
        {XKB_KEY_space, 0x0020},  {XKB_KEY_Page_Up, 0xF72C},   {XKB_KEY_Page_Down, 0xF72D},
        {XKB_KEY_Left, 0xF702},   {XKB_KEY_Right, 0xF703},     {XKB_KEY_Up, 0xF700},
        {XKB_KEY_Down, 0xF701},   {XKB_KEY_Home, 0xF729},      {XKB_KEY_End, 0xF72B},
        {XKB_KEY_F1, 0xF704},     {XKB_KEY_F2, 0xF705},        {XKB_KEY_F3, 0xF706},
        {XKB_KEY_F4, 0xF707},     {XKB_KEY_F5, 0xF708},        {XKB_KEY_F6, 0xF709},
        {XKB_KEY_F7, 0xF70A},     {XKB_KEY_F8, 0xF70B},        {XKB_KEY_F9, 0xF70C},
        {XKB_KEY_F10, 0xF70D},    {XKB_KEY_F11, 0xF70E},       {XKB_KEY_F12, 0xF70F},
        {XKB_KEY_F13, 0xF710},    {XKB_KEY_XF86Eject, 0x23CF},
    };
    for (const auto& [key, character] : rows) {
        const auto shortcut = MenuShortcut::of(with(0, key));
        ASSERT_TRUE(shortcut && shortcut->glyph) << key;
        EXPECT_TRUE(shortcut->character.isEmpty());
        EXPECT_EQ(glyphLookUpTable().value(QString::number(*shortcut->glyph)), QString(QChar(character)));
    }
}

TEST(MenuShortcut, aKeyWithoutCharacterOrGlyph_isNotReported)
{
    for (const xkb_keysym_t key : {XKB_KEY_NoSymbol, XKB_KEY_Tab, XKB_KEY_Delete, XKB_KEY_Insert, XKB_KEY_F14,
                                   XKB_KEY_KP_Enter, XKB_KEY_KP_Home, XKB_KEY_Shift_L, XKB_KEY_XF86AudioPlay})
        EXPECT_FALSE(MenuShortcut::of(with(0, key))) << key;
}
