// SPDX-License-Identifier: MIT
#include "search/SearchQuery.h"

#include "search/FoldedText.h"

namespace tarnwick {

quint64 lettersOf(QStringView folded)
{
    constexpr unsigned LastBit = 63;
    quint64 letters = 0;
    for (const QChar unit : folded) {
        if (unit != u' ')
            letters |= quint64(1) << (unit.unicode() & LastBit);
    }
    return letters;
}

SearchQuery SearchQuery::of(const QString& typed)
{
    // A character is hardly ever more than a few units: what is cut here is cut below, too.
    constexpr qsizetype Enough = 16 * Longest;
    SearchQuery query;
    query.text = foldedText(typed.left(Enough)).text.left(Longest);
    if (!query.text.isEmpty() && query.text.back().isHighSurrogate())
        query.text.chop(1);
    const auto words = query.text.split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        query.terms.append({word, lettersOf(word)});
        query.letters |= query.terms.last().letters;
    }
    return query;
}

bool SearchQuery::narrows(const SearchQuery& earlier) const
{
    return !earlier.isEmpty() && text.startsWith(earlier.text);
}

} // namespace tarnwick
