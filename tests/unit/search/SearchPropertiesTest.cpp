// SPDX-License-Identifier: MIT
// What holds whatever the titles are and whatever is typed, tried with texts made by a generator. It always
// begins in the same way, so that what fails once fails again.
#include "search/FoldedText.h"
#include "search/SearchIndex.h"

#include <QSet>
#include <QTextBoundaryFinder>
#include <gtest/gtest.h>

#include <random>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr int Rounds = 400;

/// Texts of a few characters that often meet each other, and of many kinds.
class Texts
{
public:
    explicit Texts(quint32 seed) : _random(seed) {}

    int upTo(int most) { return static_cast<int>(_random() % static_cast<quint32>(most + 1)); }

    QString character()
    {
        static const QStringList common{u"a"_s, u"b"_s, u"s"_s, u"A"_s, u"S"_s, u" "_s};
        static const QStringList rare{u"é"_s,
                                      u"e\u0301"_s,
                                      u"ß"_s,
                                      u"…"_s,
                                      u"..."_s,
                                      u"."_s,
                                      u"&"_s,
                                      u"_"_s,
                                      u"-"_s,
                                      u"(F)"_s,
                                      u"ア"_s,
                                      u"カ"_s,
                                      u"ガ"_s,
                                      u"한"_s,
                                      u"שְׁ"_s,
                                      u"بِ"_s,
                                      u"ı"_s,
                                      u"İ"_s,
                                      u"\u0301"_s,
                                      u"\t"_s,
                                      u"\u200D"_s,
                                      u"Ａ"_s,
                                      u"½"_s,
                                      u"’"_s,
                                      u"\U0001F600"_s,
                                      u"\U0001F610"_s,
                                      u"\U0001FA10"_s,
                                      QString(QChar(0xD83D)),
                                      QString(QChar(0xDE10)),
                                      u"\u0000"_s,
                                      u"हि"_s,
                                      u"ﬁ"_s};
        const QStringList& kind = upTo(2) > 0 ? common : rare;
        return kind.at(upTo(static_cast<int>(kind.size()) - 1));
    }

    QString text(int most)
    {
        QString made;
        for (int left = upTo(most); left > 0; --left)
            made += character();
        return made;
    }

private:
    std::mt19937 _random;
};

/// A bar of a few menus with a few entries, added in the order in which they are read.
void fill(SearchIndex& index, Texts& texts)
{
    const auto menu = [&](int holder, const QStringList& path) {
        CollectedMenu made{holder, path, {}};
        for (int left = 1 + texts.upTo(5); left > 0; --left)
            made.entries.append({nullptr, texts.text(8), texts.upTo(3) > 0,
                                 static_cast<quint32>(std::max(0, texts.upTo(6) - 4)), nullptr});
        index.add(made);
    };
    menu(-1, {});
    for (int holder = 0; holder < index.size() && index.size() < 40; ++holder) {
        if (texts.upTo(2) == 0)
            menu(holder, index.path(holder) + QStringList(index.entry(holder).title));
    }
}

/// The limits of what a person takes for one character.
QSet<qsizetype> characterLimits(const QString& text)
{
    QSet<qsizetype> limits{0};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype at = finder.toNextBoundary(); at >= 0; at = finder.toNextBoundary())
        limits.insert(at);
    return limits;
}

void expectValidMarks(const SearchIndex& index, int number)
{
    const QString& title = index.entry(number).title;
    const auto limits = characterLimits(title);
    qsizetype last = -1;
    for (const TextRange& mark : index.marks(number)) {
        EXPECT_GT(mark.begin, last) << "marks touch each other";
        EXPECT_GT(mark.end, mark.begin);
        EXPECT_LE(mark.end, title.size());
        EXPECT_TRUE(limits.contains(mark.begin) && limits.contains(mark.end)) << "half a character";
        last = mark.end;
    }
    EXPECT_TRUE(last >= 0 || index.level(number) == MatchLevel::Path) << "found without a mark";
}

void expectInOrder(const SearchIndex& index)
{
    const auto ranked = index.ranked();
    EXPECT_EQ(QSet<int>(ranked.cbegin(), ranked.cend()).size(), ranked.size()) << "a row is there twice";
    const auto key = [&](int number) {
        const MenuEntry& entry = index.entry(number);
        return std::tuple(*index.level(number), !entry.enabled, ~entry.lastChosen);
    };
    for (qsizetype i = 1; i < ranked.size(); ++i) {
        EXPECT_LE(key(ranked.at(i - 1)), key(ranked.at(i)));
        if (key(ranked.at(i - 1)) == key(ranked.at(i))) {
            const auto one = index.path(ranked.at(i - 1)).size();
            const auto other = index.path(ranked.at(i)).size();
            EXPECT_LE(one, other) << "the one through more menus goes first";
        }
    }
    EXPECT_EQ(index.ranked(), ranked);
}

QSet<int> found(const SearchIndex& index)
{
    const auto ranked = index.ranked();
    return {ranked.cbegin(), ranked.cend()};
}

} // namespace

TEST(SearchProperties, whateverIsTyped_marksAreValidAndTheOrderIsTotal)
{
    Texts texts(1);
    qsizetype rows = 0;
    for (int round = 0; round < Rounds; ++round) {
        SearchIndex index;
        fill(index, texts);
        const QString typed = texts.text(4);
        SCOPED_TRACE(typed.toStdString());
        index.setQuery(SearchQuery::of(typed));
        expectInOrder(index);
        for (const int number : index.ranked())
            expectValidMarks(index, number);
        rows += index.ranked().size();
        if (HasFailure())
            return;
    }
    EXPECT_GT(rows, Rounds) << "hardly anything was found";
}

TEST(SearchProperties, moreLetters_findNothingThatFewerDoNot)
{
    Texts texts(2);
    int narrowed = 0;
    for (int round = 0; round < Rounds; ++round) {
        SearchIndex index;
        fill(index, texts);
        QString typed;
        for (int keys = 0; keys < 5; ++keys) {
            const auto earlier = SearchQuery::of(typed);
            const auto before = found(index);
            typed += texts.character();
            SCOPED_TRACE(typed.toStdString());
            const auto query = SearchQuery::of(typed);
            index.setQuery(query);
            // What is told step by step is what is told at once.
            SearchIndex anew = index;
            anew.setQuery({});
            anew.setQuery(query);
            EXPECT_EQ(index.ranked(), anew.ranked());
            if (query.narrows(earlier)) {
                ++narrowed;
                EXPECT_TRUE(before.contains(found(index)));
            }
            if (HasFailure())
                return;
        }
    }
    EXPECT_GT(narrowed, Rounds);
}

TEST(SearchProperties, everyTitle_isFoundExactlyByItself)
{
    Texts texts(3);
    for (int round = 0; round < Rounds; ++round) {
        SearchIndex index;
        fill(index, texts);
        for (int number = 0; number < index.size(); ++number) {
            const QString title = index.entry(number).title;
            SCOPED_TRACE(title.toStdString());
            index.setQuery(SearchQuery::of(title));
            EXPECT_TRUE(foldedText(title).text.isEmpty() || index.level(number) == MatchLevel::Exact);
            if (HasFailure())
                return;
        }
    }
}

TEST(SearchProperties, orderOfReading_doesNotChangeTheOrderOfWhatIsFound)
{
    // The menus of a bar, one level below each other, read in two orders that keep holders before the held.
    const CollectedMenu root{-1, {}, {{nullptr, u"A x"_s}, {nullptr, u"B x"_s}}};
    const QList<MenuEntry> entries{{nullptr, u"one x"_s}, {nullptr, u"two x"_s}};
    const auto titles = [&](const QList<int>& holders) {
        SearchIndex index;
        index.setQuery(SearchQuery::of(u"x"_s));
        index.add(root);
        for (const int holder : holders)
            index.add({holder, {root.entries.at(holder).title}, entries});
        QStringList found;
        for (const int number : index.ranked())
            found.append((index.path(number) + QStringList(index.entry(number).title)).join(u" > "_s));
        return found;
    };
    EXPECT_EQ(titles({0, 1}), QStringList({u"A x"_s, u"B x"_s, u"A x > one x"_s, u"A x > two x"_s,
                                           u"B x > one x"_s, u"B x > two x"_s}));
    EXPECT_EQ(titles({1, 0}), titles({0, 1}));
}
