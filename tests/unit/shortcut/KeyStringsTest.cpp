// SPDX-License-Identifier: MIT
#include "shortcut/KeyStrings.h"

#include "foundation/Event.h"
#include "shortcut/Easing.h"
#include "shortcut/Localized.h"
#include "shortcut/ModifierFlags.h"
#include "shortcut/Numbers.h"
#include "shortcut/SRKeyCodeTransformer.h"
#include "shortcut/ShownKeys.h"
#include "tests/fakes/FakeKeyNames.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

#include <QLocale>

#include <cmath>
#include <limits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// The names of a key on the layouts us, de, fr and jp; "" for none.
struct KeyRow
{
    int code;
    const char16_t* names[4];
};

// clang-format off
constexpr KeyRow KeyRows[] = {
{0, {u"A", u"A", u"Q", u"A"}},
{1, {u"S", u"S", u"S", u"S"}},
{2, {u"D", u"D", u"D", u"D"}},
{3, {u"F", u"F", u"F", u"F"}},
{4, {u"H", u"H", u"H", u"H"}},
{5, {u"G", u"G", u"G", u"G"}},
{6, {u"Z", u"Y", u"W", u"Z"}},
{7, {u"X", u"X", u"X", u"X"}},
{8, {u"C", u"C", u"C", u"C"}},
{9, {u"V", u"V", u"V", u"V"}},
{10, {u"<", u"<", u"<", u"<"}},
{11, {u"B", u"B", u"B", u"B"}},
{12, {u"Q", u"Q", u"A", u"Q"}},
{13, {u"W", u"W", u"Z", u"W"}},
{14, {u"E", u"E", u"E", u"E"}},
{15, {u"R", u"R", u"R", u"R"}},
{16, {u"Y", u"Z", u"Y", u"Y"}},
{17, {u"T", u"T", u"T", u"T"}},
{18, {u"1", u"1", u"&", u"1"}},
{19, {u"2", u"2", u"É", u"2"}},
{20, {u"3", u"3", u"\"", u"3"}},
{21, {u"4", u"4", u"'", u"4"}},
{22, {u"6", u"6", u"-", u"6"}},
{23, {u"5", u"5", u"(", u"5"}},
{24, {u"=", u"´", u"=", u"^"}},
{25, {u"9", u"9", u"Ç", u"9"}},
{26, {u"7", u"7", u"È", u"7"}},
{27, {u"-", u"SS", u")", u"-"}},
{28, {u"8", u"8", u"_", u"8"}},
{29, {u"0", u"0", u"À", u"0"}},
{30, {u"]", u"+", u"$", u"["}},
{31, {u"O", u"O", u"O", u"O"}},
{32, {u"U", u"U", u"U", u"U"}},
{33, {u"[", u"Ü", u"^", u"@"}},
{34, {u"I", u"I", u"I", u"I"}},
{35, {u"P", u"P", u"P", u"P"}},
{36, {u"↩", u"↩", u"↩", u"↩"}},
{37, {u"L", u"L", u"L", u"L"}},
{38, {u"J", u"J", u"J", u"J"}},
{39, {u"'", u"Ä", u"Ù", u":"}},
{40, {u"K", u"K", u"K", u"K"}},
{41, {u";", u"Ö", u"M", u";"}},
{42, {u"\\", u"#", u"*", u"]"}},
{43, {u",", u",", u";", u","}},
{44, {u"/", u"-", u"!", u"/"}},
{45, {u"N", u"N", u"N", u"N"}},
{46, {u"M", u"M", u",", u"M"}},
{47, {u".", u".", u":", u"."}},
{48, {u"⇥", u"⇥", u"⇥", u"⇥"}},
{49, {u"Space", u"Space", u"Space", u"Space"}},
{50, {u"`", u"^", u"²", u""}},
{51, {u"⌫", u"⌫", u"⌫", u"⌫"}},
{52, {u"", u"", u"", u""}},
{53, {u"⎋", u"⎋", u"⎋", u"⎋"}},
{54, {u"", u"", u"", u""}},
{55, {u"", u"", u"", u""}},
{56, {u"", u"", u"", u""}},
{57, {u"", u"", u"", u""}},
{58, {u"", u"", u"", u""}},
{59, {u"", u"", u"", u""}},
{60, {u"", u"", u"", u""}},
{61, {u"", u"", u"", u""}},
{62, {u"", u"", u"", u""}},
{63, {u"", u"", u"", u""}},
{64, {u"F17", u"F17", u"F17", u"F17"}},
{65, {u"Pad .", u"Pad ,", u"Pad .", u"Pad ."}},
{66, {u"", u"", u"", u""}},
{67, {u"Pad *", u"Pad *", u"Pad *", u"Pad *"}},
{68, {u"", u"", u"", u""}},
{69, {u"Pad +", u"Pad +", u"Pad +", u"Pad +"}},
{70, {u"", u"", u"", u""}},
{71, {u"⌧", u"⌧", u"⌧", u"⌧"}},
{72, {u"", u"", u"", u""}},
{73, {u"", u"", u"", u""}},
{74, {u"", u"", u"", u""}},
{75, {u"Pad /", u"Pad /", u"Pad /", u"Pad /"}},
{76, {u"⌅", u"⌅", u"⌅", u"⌅"}},
{77, {u"", u"", u"", u""}},
{78, {u"Pad -", u"Pad -", u"Pad -", u"Pad -"}},
{79, {u"F18", u"F18", u"F18", u"F18"}},
{80, {u"F19", u"F19", u"F19", u"F19"}},
{81, {u"Pad =", u"Pad =", u"Pad =", u"Pad ="}},
{82, {u"Pad 0", u"Pad 0", u"Pad 0", u"Pad 0"}},
{83, {u"Pad 1", u"Pad 1", u"Pad 1", u"Pad 1"}},
{84, {u"Pad 2", u"Pad 2", u"Pad 2", u"Pad 2"}},
{85, {u"Pad 3", u"Pad 3", u"Pad 3", u"Pad 3"}},
{86, {u"Pad 4", u"Pad 4", u"Pad 4", u"Pad 4"}},
{87, {u"Pad 5", u"Pad 5", u"Pad 5", u"Pad 5"}},
{88, {u"Pad 6", u"Pad 6", u"Pad 6", u"Pad 6"}},
{89, {u"Pad 7", u"Pad 7", u"Pad 7", u"Pad 7"}},
{90, {u"", u"", u"", u""}},
{91, {u"Pad 8", u"Pad 8", u"Pad 8", u"Pad 8"}},
{92, {u"Pad 9", u"Pad 9", u"Pad 9", u"Pad 9"}},
{93, {u"", u"", u"", u"\\"}},
{94, {u"", u"", u"", u"\\"}},
{95, {u".", u".", u".", u"."}},
{96, {u"F5", u"F5", u"F5", u"F5"}},
{97, {u"F6", u"F6", u"F6", u"F6"}},
{98, {u"F7", u"F7", u"F7", u"F7"}},
{99, {u"F3", u"F3", u"F3", u"F3"}},
{100, {u"F8", u"F8", u"F8", u"F8"}},
{101, {u"F9", u"F9", u"F9", u"F9"}},
{102, {u"", u"", u"", u""}},
{103, {u"F11", u"F11", u"F11", u"F11"}},
{104, {u"", u"", u"", u""}},
{105, {u"F13", u"F13", u"F13", u"F13"}},
{106, {u"F16", u"F16", u"F16", u"F16"}},
{107, {u"F14", u"F14", u"F14", u"F14"}},
{108, {u"", u"", u"", u""}},
{109, {u"F10", u"F10", u"F10", u"F10"}},
{110, {u"", u"", u"", u""}},
{111, {u"F12", u"F12", u"F12", u"F12"}},
{112, {u"", u"", u"", u""}},
{113, {u"F15", u"F15", u"F15", u"F15"}},
{114, {u"?", u"?", u"?", u"?"}},
{115, {u"↖", u"↖", u"↖", u"↖"}},
{116, {u"⇞", u"⇞", u"⇞", u"⇞"}},
{117, {u"⌦", u"⌦", u"⌦", u"⌦"}},
{118, {u"F4", u"F4", u"F4", u"F4"}},
{119, {u"↘", u"↘", u"↘", u"↘"}},
{120, {u"F2", u"F2", u"F2", u"F2"}},
{121, {u"⇟", u"⇟", u"⇟", u"⇟"}},
{122, {u"F1", u"F1", u"F1", u"F1"}},
{123, {u"←", u"←", u"←", u"←"}},
{124, {u"→", u"→", u"→", u"→"}},
{125, {u"↓", u"↓", u"↓", u"↓"}},
{126, {u"↑", u"↑", u"↑", u"↑"}},
{127, {u"", u"", u"", u""}},
};
// clang-format on

constexpr FakeKeyboardLayout::Layout Layouts[] = {FakeKeyboardLayout::Us, FakeKeyboardLayout::De,
                                                  FakeKeyboardLayout::Fr, FakeKeyboardLayout::Jp};

QString nameOn(const KeyRow& row, FakeKeyboardLayout::Layout layout)
{
    return QString::fromUtf16(row.names[layout]);
}

using KeyStrings = ShortcutFixture;
using KeyCodeTransformer = ShortcutFixture;

} // namespace

// Flags

TEST(ModifierFlags, eachBitIsMappedByItself_andEveryOtherBitIsDropped)
{
    struct Row
    {
        const char* name;
        quint64 carbon;
        quint64 cocoa;
    };
    constexpr Row rows[] = {
        {"Command", 0x100, 0x100000}, {"Option", 0x800, 0x80000},           {"Control", 0x1000, 0x40000},
        {"Shift", 0x200, 0x20000},    {"function key", 0x800000, 0x800000}, {"none", 0, 0},
        {"all", 0x801B00, 0x9E0000},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(SRCarbonToCocoaFlags(row.carbon), row.cocoa);
        EXPECT_EQ(SRCocoaToCarbonFlags(row.cocoa), row.carbon);
    }
    EXPECT_EQ(SRCarbonToCocoaFlags(~quint64(0x801B00)), 0U);
    EXPECT_EQ(SRCocoaToCarbonFlags(~quint64(0x9E0000)), 0U);
}

TEST(ModifierFlags, thereAndBack_keepsTheFiveModifiersOnly)
{
    constexpr quint64 capsLockCarbon = 0x400;
    constexpr quint64 capsLockCocoa = 0x10000;
    EXPECT_EQ(SRCocoaToCarbonFlags(SRCarbonToCocoaFlags(0x801B00 | capsLockCarbon | 0x1)), 0x801B00U);
    EXPECT_EQ(SRCarbonToCocoaFlags(SRCocoaToCarbonFlags(0x9E0000 | capsLockCocoa | 0x100)), 0x9E0000U);
    EXPECT_EQ(SRCarbonToCocoaFlags(std::numeric_limits<quint64>::max()), 0x9E0000U);
}

// Names of keys

TEST_F(KeyStrings, everyKeyCode_hasItsNameOnEveryLayout)
{
    int expectedCode = 0;
    for (const KeyRow& row : KeyRows) {
        EXPECT_EQ(row.code, expectedCode++);
        for (const auto layout : Layouts) {
            SCOPED_TRACE(testing::Message() << "key code " << row.code << " on layout " << layout);
            keyboard().select(layout);
            EXPECT_EQ(SRStringForKeyCode(row.code).value_or(u"(nothing)"_s), nameOn(row, layout));
        }
    }
    EXPECT_EQ(expectedCode, 128);
}

TEST_F(KeyStrings, specialKeys_printAsTheirGlyphs)
{
    const QList<std::pair<int, char16_t>> glyphs{{51, 0x232B},  {117, 0x2326}, {71, 0x2327},  {123, 0x2190},
                                                 {124, 0x2192}, {126, 0x2191}, {125, 0x2193}, {119, 0x2198},
                                                 {115, 0x2196}, {53, 0x238B},  {121, 0x21DF}, {116, 0x21DE},
                                                 {36, 0x21A9},  {76, 0x2305},  {48, 0x21E5},  {114, 0x3F}};
    for (const auto& [code, glyph] : glyphs)
        EXPECT_EQ(SRStringForKeyCode(code), QString(QChar(glyph))) << code;
}

TEST_F(KeyStrings, spaceBar_isNamed_neverBlank)
{
    keyboard().typed[{49, 0}] = u" "_s;
    EXPECT_EQ(SRStringForKeyCode(49), u"Space"_s);
}

TEST_F(KeyStrings, keypadDigits_takeThePrefix_clearAndEnterDoNot)
{
    EXPECT_EQ(SRStringForKeyCode(83), u"Pad 1"_s);
    EXPECT_EQ(SRStringForKeyCode(87), u"Pad 5"_s);
    EXPECT_EQ(SRStringForKeyCode(71), u"\u2327"_s);
    EXPECT_EQ(SRStringForKeyCode(76), u"\u2305"_s);
}

TEST_F(KeyStrings, percentSignFromTheKeypad_isNoDirective)
{
    keyboard().typed[{83, 0}] = u"%@"_s;
    EXPECT_EQ(SRStringForKeyCode(83), u"Pad %"_s);
}

TEST_F(KeyStrings, keyWithoutAName)
{
    EXPECT_FALSE(SRStringForKeyCode(-1)) << "the empty combination";
    EXPECT_FALSE(SRStringForKeyCode(std::numeric_limits<qint16>::min()));
    EXPECT_FALSE(SRStringForKeyCode(128)) << "the layout refuses";
    EXPECT_EQ(SRStringForKeyCode(54), u""_s) << "a modifier types nothing";
}

TEST_F(KeyStrings, keyCode_isNarrowedTo16Bits)
{
    EXPECT_EQ(SRStringForKeyCode(0x10000 + 49), u"Space"_s);
    EXPECT_FALSE(SRStringForKeyCode(0xFFFF)) << "-1 in 16 bits";
}

TEST_F(KeyStrings, firstUnitOnly_upperCase)
{
    keyboard().typed[{0, 0}] = u"xyz"_s;
    EXPECT_EQ(SRStringForKeyCode(0), u"X"_s);
}

TEST_F(KeyStrings, lookUp_asksForTheDisplayOfTheKeyWithoutModifiers)
{
    EXPECT_EQ(SRStringForKeyCode(0), u"A"_s);
    ASSERT_EQ(keyboard().asked.size(), 1);
    EXPECT_EQ(keyboard().asked.first(), (FakeKeyboardLayout::Question{0, 3, 0, 91, 0, 0}));
}

TEST_F(KeyStrings, withoutALayout_onlyTheFixedTableHasNames)
{
    for (const bool missing : {true, false}) {
        SCOPED_TRACE(missing ? "no input source" : "the layout refuses");
        keyboard().inputSourceMissing = missing;
        keyboard().refuses = !missing;
        EXPECT_FALSE(SRStringForKeyCode(0));
        EXPECT_FALSE(SRStringForKeyCode(83));
        EXPECT_EQ(SRStringForKeyCode(122), u"F1"_s);
    }
}

// Combinations as texts

TEST_F(KeyStrings, modifierGlyphs_areInTheOrderControlOptionShiftCommand)
{
    struct Row
    {
        const char* name;
        quint64 cocoa;
        const char16_t* glyphs;
    };
    constexpr Row rows[] = {
        {"none", 0, u""},
        {"Control", 0x40000, u"\u2303"},
        {"Option", 0x80000, u"\u2325"},
        {"Shift", 0x20000, u"\u21E7"},
        {"Command", 0x100000, u"\u2318"},
        {"all four", 0x1E0000, u"\u2303\u2325\u21E7\u2318"},
        {"foreign bits", 0x810000 | 0x1B00, u""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(SRStringForCocoaModifierFlags(row.cocoa), QString::fromUtf16(row.glyphs));
        if (row.cocoa <= 0x1E0000) {
            EXPECT_EQ(SRStringForCarbonModifierFlags(SRCocoaToCarbonFlags(row.cocoa)),
                      QString::fromUtf16(row.glyphs));
        }
    }
    EXPECT_EQ(SRStringForCarbonModifierFlags(0x1E0000), QString()) << "Cocoa bits mean nothing there";
}

TEST_F(KeyStrings, compactForm_isGlyphsAndKey)
{
    EXPECT_EQ(SRStringForCocoaModifierFlagsAndKeyCode(0x1C0000, 122), u"\u2303\u2325\u2318F1"_s);
    EXPECT_EQ(SRStringForCarbonModifierFlagsAndKeyCode(0x1900, 122), u"\u2303\u2325\u2318F1"_s);
    EXPECT_EQ(SRStringForCocoaModifierFlagsAndKeyCode(0, 6), u"Z"_s);
    EXPECT_EQ(SRStringForCocoaModifierFlagsAndKeyCode(0x100000, -1), u"\u2318(null)"_s);
}

TEST_F(KeyStrings, readableForm_hasAnOrderOfItsOwn)
{
    EXPECT_EQ(SRReadableStringForCocoaModifierFlagsAndKeyCode(0x120000, 122), u"Command + Shift + F1"_s);
    EXPECT_EQ(SRReadableStringForCocoaModifierFlagsAndKeyCode(0x1E0000, 6),
              u"Command + Option + Control + Shift + Z"_s);
    EXPECT_EQ(SRReadableStringForCarbonModifierFlagsAndKeyCode(0x1B00, 6),
              u"Command + Option + Control + Shift + Z"_s);
    EXPECT_EQ(SRReadableStringForCocoaModifierFlagsAndKeyCode(0, 49), u"Space"_s);
    EXPECT_EQ(SRReadableStringForCocoaModifierFlagsAndKeyCode(0x40000, -1), u"Control + (null)"_s);
}

TEST_F(KeyStrings, shownForms_areGlyphsAndWords_orWhatTheDesktopSays)
{
    const KeyCombo pageDown{0x1E0000, 121};
    EXPECT_EQ(shownModifiers(0x1E0000), u"\u2303\u2325\u21E7\u2318"_s);
    EXPECT_EQ(shownKeyCombo(pageDown), u"\u2303\u2325\u21E7\u2318\u21DF"_s);
    EXPECT_EQ(readableKeyCombo(pageDown), u"Command + Option + Control + Shift + \u21DF"_s);

    FakeKeyNames names;
    const SharedPorts shared(names);
    const QString words = u"Strg+Alt+Umschalt+Super+Bild ab"_s;
    EXPECT_EQ(shownModifiers(0x1E0000), u"Strg+Alt+Umschalt+Super+"_s);
    EXPECT_EQ(shownModifiers(0), QString());
    for (const auto& text : {shownKeyCombo(pageDown), readableKeyCombo(pageDown), spokenKeyCombo(pageDown)})
        EXPECT_EQ(text, words);
    EXPECT_EQ(shownKeyCombo({0x80000, 6}), u"Alt+Z"_s) << "a key that types is called by what it types";
    EXPECT_EQ(shownKeyCombo({0x80000, 122}), u"Alt+F1"_s);
    EXPECT_EQ(shownKeyCombo({0x80000, -1}), u"Alt+"_s);
    EXPECT_EQ(SRStringForCocoaModifierFlagsAndKeyCode(0x80000, 121), u"\u2325\u21DF"_s)
        << "not the stored form";
}

TEST_F(KeyStrings, longestCombos_holdEachKeyWithAllModifiers)
{
    FakeKeyNames names;
    const SharedPorts shared(names);
    const QStringList texts = longestKeyCombos();
    EXPECT_TRUE(texts.contains(u"Strg+Alt+Umschalt+Super+Bild ab"_s));
    EXPECT_TRUE(texts.contains(u"Strg+Alt+Umschalt+Super+Z"_s));
    EXPECT_FALSE(texts.contains(u"Strg+Alt+Umschalt+Super+"_s)) << "a key without a name";
}

TEST_F(KeyStrings, spokenForm_namesGlyphKeys)
{
    EXPECT_EQ(spokenKeyCombo({0x80000, 6}), u"Option Z"_s);
    EXPECT_EQ(spokenKeyCombo({0x1E0000, 123}), u"Command Option Control Shift Left Arrow"_s);
    EXPECT_EQ(spokenKeyCombo({0x100000, 51}), u"Command Delete"_s);
    EXPECT_EQ(spokenKeyCombo({0, 49}), u"Space"_s);
    const QList<int> glyphKeys{51, 117, 71, 123, 124, 126, 125, 119, 115, 53, 121, 116, 36, 76, 48, 114};
    for (const int code : glyphKeys)
        EXPECT_GT(spokenKeyCombo({0, code}).size(), 1) << code;
}

// Characters

TEST_F(KeyStrings, character_asksWithTheUnshiftedMasksOfShiftAndOption)
{
    struct Row
    {
        const char* name;
        quint64 cocoa;
        quint32 state;
    };
    constexpr Row rows[] = {
        {"neither", 0, 0},
        {"Option", 0x80000, 0x800},
        {"Shift", 0x20000, 0x200},
        {"both", 0xA0000, 0xA00},
        {"Command and Control are ignored", 0x140000, 0},
        {"all", 0x9E0000, 0xA00},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        keyboard().asked.clear();
        keyboard().typed[{6, row.state}] = u"\u00E6ab"_s;
        EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(6, row.cocoa), u"\u00C6"_s);
        ASSERT_EQ(keyboard().asked.size(), 1);
        EXPECT_EQ(keyboard().asked.first(), (FakeKeyboardLayout::Question{6, 3, row.state, 91, 0, 0}));
        keyboard().typed.clear();
    }
}

TEST_F(KeyStrings, character_ofCarbonFlags_isThatOfTheSameCocoaFlags)
{
    keyboard().typed[{6, 0xA00}] = u"\u00B8"_s;
    EXPECT_EQ(SRCharacterForKeyCodeAndCarbonFlags(6, 0x1B00), u"\u00B8"_s);
    EXPECT_EQ(SRCharacterForKeyCodeAndCarbonFlags(6, 0x80000), u"Z"_s) << "a Cocoa bit means nothing there";
}

TEST_F(KeyStrings, character_followsTheLayout_notTheFixedTable)
{
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(49, 0), u" "_s);
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(18, 0x20000), u"!"_s);
    keyboard().select(FakeKeyboardLayout::De);
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(6, 0), u"Y"_s);
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(27, 0), u"Ss"_s) << "capitalised as a word would be";
}

TEST_F(KeyStrings, character_isCapitalisedInTheUsersLanguage)
{
    keyboard().typed[{34, 0}] = u"i"_s;
    keyboard().typed[{35, 0}] = u"\u01C6"_s;
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(34, 0), u"I"_s);
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(35, 0), u"\u01C5"_s) << "a digraph has a title case";
}

TEST_F(KeyStrings, character_withoutALayout_isTheNameOfTheKey)
{
    keyboard().inputSourceMissing = true;
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(122, 0), u"F1"_s);
    EXPECT_FALSE(SRCharacterForKeyCodeAndCocoaFlags(0, 0));
    keyboard().inputSourceMissing = false;
    keyboard().refuses = true;
    EXPECT_EQ(SRCharacterForKeyCodeAndCocoaFlags(53, 0), u"\u238B"_s);
}

// The transformer

TEST_F(KeyCodeTransformer, class_allowsReverseTransformation_toTexts)
{
    EXPECT_TRUE(SRKeyCodeTransformer::allowsReverseTransformation());
    EXPECT_EQ(SRKeyCodeTransformer::transformedValueClass(), QMetaType::fromType<QString>());
    EXPECT_TRUE(SRKeyCodeTransformer().classAllowsReverseTransformation());
}

TEST_F(KeyCodeTransformer, isFoundByTheNameOfItsClass)
{
    SRKeyCodeTransformer::initialize();
    EXPECT_TRUE(ValueTransformer::valueTransformerForName(u"SRKeyCodeTransformer"_s));
    EXPECT_FALSE(ValueTransformer::valueTransformerForName(u"Nobody"_s));
}

TEST_F(KeyCodeTransformer, forward_takesNumbersOfEveryKind_andNothingElse)
{
    const SRKeyCodeTransformer transformer;
    for (const QVariant& number :
         {QVariant(122), QVariant(122U), QVariant(122LL), QVariant(122ULL), QVariant(122.9),
          QVariant::fromValue<qint16>(122), QVariant::fromValue<float>(122)})
        EXPECT_EQ(transformer.transformedValue(number).toString(), u"F1"_s) << number.typeName();
    EXPECT_EQ(transformer.transformedValue(true).toString(), u"S"_s) << "a boolean is the number 1";
    for (const QVariant& other : {QVariant(), QVariant(u"122"_s), QVariant(QVariantMap()), QVariant(-1)})
        EXPECT_FALSE(transformer.transformedValue(other).isValid()) << other.typeName();
}

TEST_F(KeyCodeTransformer, reverse_findsTheHighestCode_onEveryLayout)
{
    const SRKeyCodeTransformer transformer;
    for (const auto layout : Layouts) {
        keyboard().select(layout);
        QMap<QString, int> highest;
        for (const KeyRow& row : KeyRows) {
            if (const QString name = nameOn(row, layout); !name.isEmpty())
                highest[name] = row.code;
        }
        for (auto each = highest.cbegin(); each != highest.cend(); ++each) {
            EXPECT_EQ(transformer.reverseTransformedValue(each.key()), QVariant(each.value()))
                << each.key().toStdString() << " on layout " << layout;
        }
    }
    EXPECT_EQ(transformer.reverseTransformedValue(u"."_s).toInt(), 95) << "both 47 and 95 type a full stop";
}

TEST_F(KeyCodeTransformer, reverse_wantsTheExactText)
{
    const SRKeyCodeTransformer transformer;
    EXPECT_EQ(transformer.reverseTransformedValue(u"Space"_s).toInt(), 49);
    for (const QVariant& value : {QVariant(u"z"_s), QVariant(u"Nothing"_s), QVariant(u""_s), QVariant(6),
                                  QVariant(), QVariant(QByteArray("Z"))})
        EXPECT_FALSE(transformer.reverseTransformedValue(value).isValid()) << value.typeName();
}

TEST_F(KeyCodeTransformer, anotherLayout_movesLetters_andLeavesTheFixedTableAlone)
{
    const SRKeyCodeTransformer transformer;
    EXPECT_EQ(transformer.reverseTransformedValue(u"Z"_s).toInt(), 6);
    keyboard().select(FakeKeyboardLayout::De);
    EXPECT_EQ(transformer.reverseTransformedValue(u"Z"_s).toInt(), 16);
    EXPECT_EQ(transformer.reverseTransformedValue(u"F1"_s).toInt(), 122);
    EXPECT_EQ(transformer.reverseTransformedValue(u"\u232B"_s).toInt(), 51);
    keyboard().select(FakeKeyboardLayout::Us);
    EXPECT_EQ(transformer.reverseTransformedValue(u"Z"_s).toInt(), 6);
}

TEST_F(KeyCodeTransformer, reverseMap_changesOnlyWhenItIsRegenerated)
{
    const SRKeyCodeTransformer transformer;
    keyboard().typed[{6, 0}] = u"\u00F8"_s;
    EXPECT_FALSE(transformer.reverseTransformedValue(u"\u00D8"_s).isValid());
    SRKeyCodeTransformer::regenerateStringToKeyCodeMapping();
    EXPECT_EQ(transformer.reverseTransformedValue(u"\u00D8"_s).toInt(), 6);
    EXPECT_FALSE(transformer.reverseTransformedValue(u"Z"_s).isValid()) << "the old entries are gone";
}

// Odds and ends

TEST(AnimationEaseInOut, isHalfACosineWave)
{
    EXPECT_DOUBLE_EQ(SRAnimationEaseInOut(0), 0);
    EXPECT_NEAR(SRAnimationEaseInOut(0.25), (1 - std::sqrt(0.5)) / 2, 1e-12);
    EXPECT_DOUBLE_EQ(SRAnimationEaseInOut(0.5), 0.5);
    EXPECT_NEAR(SRAnimationEaseInOut(0.75), (1 + std::sqrt(0.5)) / 2, 1e-12);
    EXPECT_DOUBLE_EQ(SRAnimationEaseInOut(1), 1);
}

TEST(FilledIn, textsReplaceDirectives_andAreNotLookedAtAgain)
{
    struct Row
    {
        const char* name;
        const char16_t* format;
        const char16_t* result;
    };
    constexpr Row rows[] = {
        {"in turn", u"%@ and %@", u"%@%% and two"},
        {"by number", u"%2$@ before %1$@", u"two before %@%%"},
        {"two percent signs", u"100%% of %@", u"100% of %@%%"},
        {"another directive", u"%d%s %@", u"%d%s %@%%"},
        {"more than there are", u"%@ %@ %@", u"%@%% two "},
        {"none", u"plain", u"plain"},
        {"a percent sign at the end", u"%@ %", u"%@%% %"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(filledIn(QString::fromUtf16(row.format), {u"%@%%"_s, u"two"_s}),
                  QString::fromUtf16(row.result))
            << row.name;
    EXPECT_EQ(filledIn(u"%@!"_s, {std::nullopt}), u"(null)!"_s);
}

TEST(WholeNumber, isReadFromEveryNumber_andOutOfRangeIsNeutral)
{
    EXPECT_EQ(wholeNumber(std::numeric_limits<quint64>::max()), -1);
    EXPECT_EQ(wholeNumber(-3.7), -3);
    EXPECT_EQ(wholeNumber(1e300), 0);
    EXPECT_EQ(wholeNumber(std::nan("")), 0);
    EXPECT_EQ(wholeNumber(1.8e19), static_cast<qint64>(18000000000000000000ULL));
    EXPECT_FALSE(wholeNumber(QVariant()));
    EXPECT_FALSE(wholeNumber(u"12"_s));
}
