// SPDX-License-Identifier: MIT
#include "search/TermMatch.h"

#include "search/FoldedText.h"

#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

struct Row
{
    QString title;
    QString term;
    std::optional<MatchLevel> level;
    QString marked; ///< the folded title with what is met in brackets
};

const Row Rows[] = {
    {u"Save As"_s, u"save"_s, MatchLevel::Words, u"[save] as"_s},
    {u"Save As"_s, u"as"_s, MatchLevel::Words, u"save [as]"_s},
    {u"Base As"_s, u"as"_s, MatchLevel::Words, u"base [as]"_s}, // not in "base", where it is first
    {u"Save As"_s, u"sa"_s, MatchLevel::Words, u"[sa]ve as"_s},
    {u"Save As"_s, u"sas"_s, MatchLevel::Initials, u"[s]ave [as]"_s},
    {u"Save As"_s, u"savas"_s, MatchLevel::Initials, u"[sav]e [as]"_s},
    {u"Quick Open"_s, u"qo"_s, MatchLevel::Initials, u"[q]uick [o]pen"_s},
    {u"Find and Replace"_s, u"fr"_s, MatchLevel::Initials, u"[f]ind and [r]eplace"_s},
    {u"Find and Replace"_s, u"far"_s, MatchLevel::Initials, u"[f]ind [a]nd [r]eplace"_s},
    {u"4-way Arrow Callout"_s, u"wc"_s, MatchLevel::Letters, u"4[w]ay arrow [c]allout"_s}, // Arrow is long
    {u"Go to Type Definition"_s, u"gtd"_s, MatchLevel::Initials, u"[g]o to [t]ype [d]efinition"_s},
    {u"Paste As Special"_s, u"pas"_s, MatchLevel::Words, u"[pas]te as special"_s},
    {u"Flowchart"_s, u"wc"_s, MatchLevel::Inside, u"flo[wc]hart"_s},
    {u"Increase"_s, u"x"_s, std::nullopt, u"increase"_s},
    {u"Increase"_s, u"ics"_s, MatchLevel::Letters, u"[i]n[c]rea[s]e"_s},
    {u"Increase"_s, u"increases"_s, std::nullopt, u"increase"_s},
    {u"Save"_s, u"vs"_s, std::nullopt, u"save"_s},
    {u"E-Mail"_s, u"email"_s, MatchLevel::Words, u"[email]"_s},
    // Letters that share their first unit are not the same.
    {u"a\U0001F600\U0001F610"_s, u"\U0001F610"_s, MatchLevel::Words, u"a\U0001F600[\U0001F610]"_s},
    {u"\U0001F600a\U0001F610b"_s, u"\U0001F600\U0001F610"_s, MatchLevel::Letters,
     u"[\U0001F600]a[\U0001F610]b"_s},
    {u"\U0001F600\U0001FA10"_s, u"\U0001F610"_s, std::nullopt, u"\U0001F600\U0001FA10"_s},
};

QString marked(const QString& text, const QList<TextRange>& where)
{
    QString result = text;
    for (auto range = where.crbegin(); range != where.crend(); ++range) {
        result.insert(range->end, u']');
        result.insert(range->begin, u'[');
    }
    return result;
}

} // namespace

TEST(TermMatch, term_isMetAsWellAsItCanBe)
{
    for (const Row& row : Rows) {
        SCOPED_TRACE((row.title + u" ? "_s + row.term).toStdString());
        const FoldedText title = foldedText(row.title);
        const FoldedView view{title.text, title.wordStarts.constData()};
        QList<TextRange> where;
        EXPECT_EQ(matchTerm(view, row.term, &where), row.level);
        EXPECT_EQ(matchTerm(view, row.term), row.level);
        EXPECT_EQ(marked(title.text, where).toStdString(), row.marked.toStdString());
    }
}

TEST(TermMatch, initials_areLookedForAtTheBeginningOfLongTitles)
{
    const auto levelIn = [](int wordsBefore) {
        const FoldedText title = foldedText(u"long words "_s.repeated(wordsBefore) + u"Quick Open"_s);
        return matchTerm({title.text, title.wordStarts.constData()}, u"qo");
    };
    EXPECT_EQ(levelIn(4), MatchLevel::Initials);
    EXPECT_EQ(levelIn(10), MatchLevel::Letters);
    const FoldedText full = foldedText(u"a "_s.repeated(31) + u"b cd"_s); // words up to the last bit
    EXPECT_EQ(matchTerm({full.text, full.wordStarts.constData()}, u"ab"), MatchLevel::Initials);
}
