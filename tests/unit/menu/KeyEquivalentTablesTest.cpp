// SPDX-License-Identifier: MIT
#include "menu/GlyphLookUpTable.h"
#include "menu/ModifierLookUpTable.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

TEST(KeyEquivalentTables, glyphs_areTheseAndNoOthers)
{
    const QHash<QString, QString> expected = {
        {u"11"_s, u"\u000D"_s},  {u"16"_s, u"\uF701"_s},  {u"23"_s, u"\u0008"_s},  {u"24"_s, u"\uF702"_s},
        {u"25"_s, u"\uF700"_s},  {u"26"_s, u"\uF703"_s},  {u"27"_s, u"\u001B"_s},  {u"32"_s, u" "_s},
        {u"98"_s, u"\uF72C"_s},  {u"100"_s, u"\uF702"_s}, {u"101"_s, u"\uF703"_s}, {u"102"_s, u"\uF729"_s},
        {u"104"_s, u"\uF700"_s}, {u"105"_s, u"\uF72B"_s}, {u"106"_s, u"\uF701"_s}, {u"107"_s, u"\uF72D"_s},
        {u"111"_s, u"\uF704"_s}, {u"112"_s, u"\uF705"_s}, {u"113"_s, u"\uF706"_s}, {u"114"_s, u"\uF707"_s},
        {u"115"_s, u"\uF708"_s}, {u"116"_s, u"\uF709"_s}, {u"117"_s, u"\uF70A"_s}, {u"118"_s, u"\uF70B"_s},
        {u"119"_s, u"\uF70C"_s}, {u"120"_s, u"\uF70D"_s}, {u"121"_s, u"\uF70E"_s}, {u"122"_s, u"\uF70F"_s},
        {u"123"_s, u"\uF710"_s}, {u"140"_s, u"\u23CF"_s},
    };
    ASSERT_EQ(expected.size(), 30);
    EXPECT_EQ(glyphLookUpTable(), expected);
}

TEST(KeyEquivalentTables, modifiers_areTheseAndNoOthers)
{
    const QHash<QString, quint32> expected = {
        {u"1"_s, 0x120000}, {u"2"_s, 0x180000}, {u"3"_s, 0x1A0000}, {u"4"_s, 0x140000}, {u"6"_s, 0x1C0000},
        {u"8"_s, 0x100000}, {u"9"_s, 0x20000},  {u"10"_s, 0x80000}, {u"11"_s, 0xA0000}, {u"12"_s, 0x40000},
    };
    ASSERT_EQ(expected.size(), 10);
    EXPECT_EQ(modifierLookUpTable(), expected);
}
