// SPDX-License-Identifier: MIT
#include "platform/qt/menu/LetterSearch.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

const QStringList titles{u"New"_s,     u"Open"_s,    {},        u"Save"_s,
                         u"Save As"_s, u"Send To"_s, u"Über"_s, u"offline"_s};

/// Types one letter after the other, `pause` milliseconds apart, following the highlight.
int afterTyping(const QString& letters, int current = -1, qint64 pause = 100)
{
    LetterSearch search;
    qint64 now = 5000;
    for (const QChar letter : letters) {
        current = search.type(letter, now, titles, current).value_or(current);
        now += pause;
    }
    return current;
}

TEST(LetterSearch, aLetter_movesToTheFirstEntryThatBeginsWithIt)
{
    EXPECT_EQ(afterTyping(u"s"_s), 3);
    EXPECT_EQ(afterTyping(u"o"_s), 1);
    EXPECT_EQ(afterTyping(u"ü"_s), 6);
}

TEST(LetterSearch, caseDoesNotCount)
{
    EXPECT_EQ(afterTyping(u"S"_s), 3);
    EXPECT_EQ(afterTyping(u"O"_s, 1), 7);
}

TEST(LetterSearch, theSameLetter_goesOnToTheNextEntryAndRound)
{
    EXPECT_EQ(afterTyping(u"ss"_s), 4);
    EXPECT_EQ(afterTyping(u"sss"_s), 5);
    EXPECT_EQ(afterTyping(u"ssss"_s), 3);
}

TEST(LetterSearch, lettersInQuickSuccession_areOneBeginning)
{
    EXPECT_EQ(afterTyping(u"se"_s), 5);
    EXPECT_EQ(afterTyping(u"sa"_s), 3);
    EXPECT_EQ(afterTyping(u"sa"_s, 3), 4) << "the highlighted entry itself comes last for its first letter";
    EXPECT_EQ(afterTyping(u"save a"_s), 4);
}

TEST(LetterSearch, lettersWithAPauseBetween_areTwoBeginnings)
{
    EXPECT_EQ(afterTyping(u"so"_s, -1, LetterSearch::PauseMilliseconds + 1), 7);
    EXPECT_EQ(afterTyping(u"ss"_s, -1, LetterSearch::PauseMilliseconds + 1), 4);
}

TEST(LetterSearch, aLetterThatContinuesNothing_beginsAnew)
{
    EXPECT_EQ(afterTyping(u"sn"_s), 0);
}

TEST(LetterSearch, noEntry_isNothing)
{
    LetterSearch search;
    EXPECT_EQ(search.type(u"x"_s, 0, titles, 2), std::nullopt);
    EXPECT_EQ(search.type(u"x"_s, 0, {}, -1), std::nullopt);
}

TEST(LetterSearch, entriesThatCannotBeChosen_areNeverFound)
{
    LetterSearch search;
    EXPECT_EQ(search.type(u" "_s, 0, {QString(), QString()}, -1), std::nullopt);
}

TEST(LetterSearch, isUnderWay_untilThePauseOrUntilForgotten)
{
    LetterSearch search;
    EXPECT_FALSE(search.isUnderWay(0));
    static_cast<void>(search.type(u"s"_s, 1000, titles, -1));
    EXPECT_TRUE(search.isUnderWay(1000 + LetterSearch::PauseMilliseconds));
    EXPECT_FALSE(search.isUnderWay(1001 + LetterSearch::PauseMilliseconds));
    search.forget();
    EXPECT_FALSE(search.isUnderWay(1000));
}

} // namespace
} // namespace tarnwick
