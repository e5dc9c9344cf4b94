// SPDX-License-Identifier: MIT
#include "search/ResultList.h"

#include <gtest/gtest.h>

using namespace tarnwick;

TEST(ResultList, newQuery_highlightsItsFirstRow)
{
    ResultList list;
    list.begin({4, 2, 9}, true);
    EXPECT_EQ(list.rows(), QList<int>({4, 2, 9}));
    EXPECT_EQ(list.highlighted(), 0);
    list.highlight(2);
    list.begin({2, 4}, true);
    EXPECT_EQ(list.rows(), QList<int>({2, 4}));
    EXPECT_EQ(list.highlighted(), 0);
    list.begin({}, true);
    EXPECT_EQ(list.highlighted(), std::nullopt);
}

TEST(ResultList, laterRows_leaveTheHighlightedOneAndThoseAboveItWhereTheyAre)
{
    ResultList list;
    list.begin({4, 2, 9}, true);
    list.highlight(1);
    list.extend({7, 4, 8, 2, 6, 9}, true);
    EXPECT_EQ(list.rows(), QList<int>({4, 2, 7, 8, 6, 9}));
    EXPECT_EQ(list.highlighted(), 1);
    list.extend({7, 4, 8, 2, 6, 5, 9, 1}, true);
    EXPECT_EQ(list.rows(), QList<int>({4, 2, 7, 8, 6, 5, 9, 1}));
    EXPECT_EQ(list.highlighted(), 1);
}

TEST(ResultList, betterLaterRow_comesDirectlyBelowTheFirstWhenThatIsHighlighted)
{
    ResultList list;
    list.begin({4, 2}, true);
    list.extend({7, 4, 2}, true);
    EXPECT_EQ(list.rows(), QList<int>({4, 7, 2}));
    EXPECT_EQ(list.highlighted(), 0);
}

TEST(ResultList, laterRows_goWhereTheyBelongWhileNothingIsHighlighted)
{
    ResultList list;
    list.begin({4, 2}, false);
    EXPECT_EQ(list.highlighted(), std::nullopt);
    list.extend({7, 4, 2}, false);
    EXPECT_EQ(list.rows(), QList<int>({7, 4, 2}));
    EXPECT_EQ(list.highlighted(), std::nullopt);
    list.extend({7, 4, 2}, true);
    EXPECT_EQ(list.highlighted(), 0);
}

TEST(ResultList, highlightTakenAwayByHand_doesNotComeBackOfItsOwnAccord)
{
    ResultList list;
    list.begin({4, 2}, true);
    list.highlight(std::nullopt);
    list.extend({7, 4, 2}, true);
    EXPECT_EQ(list.highlighted(), std::nullopt);
    list.begin({7, 4, 2}, true);
    EXPECT_EQ(list.highlighted(), 0);
}

TEST(ResultList, rowThatIsNotThere_isNoHighlight)
{
    ResultList list;
    list.begin({4, 2}, true);
    for (const int row : {-1, 2}) {
        list.highlight(1);
        list.highlight(row);
        EXPECT_EQ(list.highlighted(), std::nullopt);
    }
}
