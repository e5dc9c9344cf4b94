// SPDX-License-Identifier: MIT
#include "search/FoldedText.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char* sentence;
    QString text;
    QString folded;
};

const Row Rows[] = {
    {"case does not count", u"SAVE As"_s, u"save as"_s},
    {"accents do not", u"Résumé"_s, u"resume"_s},
    {"nor where they are characters of their own", u"Re\u0301sume\u0301"_s, u"resume"_s},
    {"nor several on one letter", u"\u1EC7\u0323\u0302x"_s, u"ex"_s},
    {"sharp s, small and capital", u"Größe STRAẞE"_s, u"grosse strasse"_s},
    {"Turkish letters i", u"Iıİi"_s, u"iiii"_s},
    {"letters that have no accent in the tables", u"Œuvre Łódź Ærø Ðorđe"_s, u"oeuvre lodz aero dorde"_s},
    {"Greek accents and both sigmas", u"Άνοιγμα ΩΣ ως"_s, u"ανοιγμα ωσ ωσ"_s},
    {"Cyrillic accents", u"Ёлка"_s, u"елка"_s},
    {"full-width forms", u"ＡＢＣ１２"_s, u"abc12"_s},
    {"ligatures", u"ﬁle"_s, u"file"_s},
    {"half-width kana are kana, and a voiced one is another letter", u"ｶﾞｶ"_s, u"ガカ"_s},
    {"Arabic vowel points, lengthening and hamza", u"بِـاسم إلغاء"_s, u"باسم الغاء"_s},
    {"Arabic and Persian letters of one look", u"کتابی ى"_s, u"كتابي ي"_s},
    {"Hebrew points", u"שְׁמִירָה"_s, u"שמירה"_s},
    {"vowels of Devanagari stay", u"हिंदी"_s, u"हिंदी"_s},
    {"an ellipsis of one character", u"Open…"_s, u"open"_s},
    {"of three", u"Open..."_s, u"open"_s},
    {"two full stops, too", u"To.."_s, u"to"_s},
    {"in the middle", u"More…here"_s, u"morehere"_s},
    {"one full stop stays", u"2019.txt etc."_s, u"2019.txt etc."_s},
    {"mnemonic marks", u"&Save _As"_s, u"save as"_s},
    {"an ampersand between blanks", u"Cut & Paste"_s, u"cut paste"_s},
    {"a mnemonic behind a Japanese title", u"ファイル(F)"_s, u"ファイル"_s},
    {"and before an ellipsis", u"保存(&S)..."_s, u"保存"_s},
    {"and behind a character of two units", u"\U00020000(F)"_s, u"\U00020000"_s},
    {"but not behind a Latin one", u"Plan (B)"_s, u"plan (b)"_s},
    {"nor longer ones", u"ファイル(PDF)"_s, u"ファイル(pdf)"_s},
    {"hyphens and dashes of any kind", u"Drop-Down e\u2011mail a–b −1"_s, u"dropdown email ab 1"_s},
    {"a soft hyphen and what is not seen", u"a\u00ADb\u200Bc\u200Ed"_s, u"abcd"_s},
    {"spaces of any kind, and several", u" a\u00A0b\t c\u3000\nd "_s, u"a b c d"_s},
    {"quotes", u"What’s “this”"_s, u"what's \"this\""_s},
    {"signs stay", u"C++ 100% 1:1"_s, u"c++ 100% 1:1"_s},
    {"a text of marks keeps them", u"…"_s, u"..."_s},
    {"and so does one of several", u" -- & "_s, u"-- &"_s},
    {"an accent alone is nothing", u"\u0301"_s, u""_s},
    {"half a pair is what is shown of it", QString(QChar(0xD83D)), u"\uFFFD"_s},
    {"nothing is nothing", u""_s, u""_s},
};

/// A letter that begins a word in brackets.
QString withStarts(const QString& text)
{
    const FoldedText folded = foldedText(text);
    QString marked;
    for (qsizetype i = 0; i < folded.text.size(); ++i)
        marked += folded.wordStarts.at(i) ? u'[' + QString(folded.text.at(i)) + u']' : folded.text.mid(i, 1);
    return marked;
}

/// The parts of the text that the units of its folded form come from.
QStringList sourcesOf(const QString& text)
{
    QStringList parts;
    for (const TextRange& source : sourcesOfFoldedText(text))
        parts.append(text.mid(source.begin, source.end - source.begin));
    return parts;
}

} // namespace

TEST(FoldedText, whatDoesNotCount_isFolded)
{
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.sentence);
        const FoldedText folded = foldedText(row.text);
        EXPECT_EQ(folded.text.toStdString(), row.folded.toStdString());
        EXPECT_EQ(folded.wordStarts.size(), folded.text.size());
        EXPECT_EQ(sourcesOfFoldedText(row.text).size(), folded.text.size());
        EXPECT_EQ(foldedText(folded.text).text, folded.text) << "folding a second time changes something";
    }
}

TEST(FoldedText, words_beginWhereAReaderBeginsThem)
{
    EXPECT_EQ(withStarts(u"Save As…"_s), u"[s]ave [a]s"_s);
    EXPECT_EQ(withStarts(u"Drop-Down"_s), u"[d]rop[d]own"_s);
    EXPECT_EQ(withStarts(u"JavaScript"_s), u"[j]ava[s]cript"_s);
    EXPECT_EQ(withStarts(u"HTML5"_s), u"[h]tml5"_s);
    EXPECT_EQ(withStarts(u"Show/Hide"_s), u"[s]how/[h]ide"_s);
    EXPECT_EQ(withStarts(u"notes.txt"_s), u"[n]otes.[t]xt"_s);
    EXPECT_EQ(withStarts(u"More…Here"_s), u"[m]ore[h]ere"_s);
    EXPECT_EQ(withStarts(u"R&D_x"_s), u"[r][d][x]"_s);
    EXPECT_EQ(withStarts(u"l’échelle"_s), u"[l]'[e]chelle"_s);
    EXPECT_EQ(withStarts(u"Größe Ærø"_s), u"[g]rosse [a]ero"_s);
}

TEST(FoldedText, sources_areWholeCharactersOfTheText)
{
    EXPECT_EQ(sourcesOf(u"aß"_s), QStringList({u"a"_s, u"ß"_s, u"ß"_s}));
    EXPECT_EQ(sourcesOf(u"e\u0301\u0323x"_s), QStringList({u"e\u0301\u0323"_s, u"x"_s}));
    EXPECT_EQ(sourcesOf(u"\U0001F600a"_s), QStringList({u"\U0001F600"_s, u"\U0001F600"_s, u"a"_s}));
    EXPECT_EQ(sourcesOf(u"שְׁמ"_s), QStringList({u"שְׁ"_s, u"מ"_s}));
    EXPECT_EQ(sourcesOf(u"a  b"_s), QStringList({u"a"_s, u" "_s, u"b"_s}));
    EXPECT_EQ(sourcesOf(u"E-_x"_s), QStringList({u"E"_s, u"x"_s}));
    EXPECT_EQ(sourcesOf(u"…"_s), QStringList({u"…"_s, u"…"_s, u"…"_s}));
    EXPECT_EQ(sourcesOf(u"v1.2"_s), QStringList({u"v"_s, u"1"_s, u"."_s, u"2"_s}));
}
