// SPDX-License-Identifier: MIT
#include "search/ResultList.h"

#include <QSet>

namespace tarnwick {

void ResultList::begin(const QList<int>& ranked, bool highlightsFirst)
{
    _rows = ranked;
    _highlighted.reset();
    _movedByHand = false;
    _highlightFirst(highlightsFirst);
}

void ResultList::extend(const QList<int>& ranked, bool highlightsFirst)
{
    QList<int> rows;
    if (_highlighted) {
        rows = _rows.first(*_highlighted + 1);
        const QSet<int> kept(rows.cbegin(), rows.cend());
        for (const int number : ranked) {
            if (!kept.contains(number))
                rows.append(number);
        }
    } else {
        rows = ranked;
    }
    _rows = rows;
    _highlightFirst(highlightsFirst);
}

void ResultList::highlight(std::optional<int> row)
{
    _movedByHand = true;
    _highlighted = row && *row >= 0 && *row < _rows.size() ? row : std::nullopt;
}

void ResultList::_highlightFirst(bool wanted)
{
    if (wanted && !_movedByHand && !_highlighted && !_rows.isEmpty())
        _highlighted = 0;
}

} // namespace tarnwick
