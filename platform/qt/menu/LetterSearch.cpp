// SPDX-License-Identifier: MIT
#include "platform/qt/menu/LetterSearch.h"

#include <algorithm>

namespace tarnwick {

namespace {

/// The first title from `start` on, then from the top, that begins with `typed`.
std::optional<int> find(const QString& typed, const QStringList& titles, int start)
{
    const int count = static_cast<int>(titles.size());
    for (int i = 0; i < count; ++i) {
        const int index = (start + i) % count;
        if (titles.at(index).startsWith(typed, Qt::CaseInsensitive))
            return index;
    }
    return std::nullopt;
}

bool isOneLetterRepeated(const QString& typed, const QString& letter)
{
    return std::all_of(typed.cbegin(), typed.cend(), [&](QChar typedLetter) {
        return QString(typedLetter).compare(letter, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

bool LetterSearch::isUnderWay(qint64 now) const
{
    return !_typed.isEmpty() && now - _lastTime <= PauseMilliseconds;
}

std::optional<int> LetterSearch::type(const QString& letter, qint64 now, const QStringList& titles,
                                      int current)
{
    if (!isUnderWay(now))
        _typed.clear();
    _lastTime = now;

    const bool goesOn = !_typed.isEmpty();
    _typed += letter;
    // A longer beginning may still be met by the entry that the shorter one has led to.
    if (goesOn) {
        if (const auto found = find(_typed, titles, std::max(current, 0)))
            return found;
        if (!isOneLetterRepeated(_typed, letter))
            _typed = letter;
    }
    return find(letter, titles, current + 1);
}

} // namespace tarnwick
