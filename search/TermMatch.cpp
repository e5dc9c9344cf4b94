// SPDX-License-Identifier: MIT
#include "search/TermMatch.h"

#include <QVarLengthArray>

#include <algorithm>
#include <bit>

namespace tarnwick {

namespace {

constexpr qsizetype NotFound = -1;

/// Initials are looked for in the units of a title that one number has a bit for.
constexpr qsizetype UnitsWithInitials = 64;

void note(QList<TextRange>* where, qsizetype begin, qsizetype end)
{
    if (!where)
        return;
    if (!where->isEmpty() && where->last().end == begin)
        where->last().end = end;
    else
        where->append({begin, end});
}

/// Where the term begins a word, else where it is at all.
qsizetype placeOf(FoldedView title, QStringView term)
{
    const qsizetype first = title.text.indexOf(term);
    qsizetype place = first;
    while (place != NotFound && !title.wordStarts[place])
        place = title.text.indexOf(term, place + 1);
    return place != NotFound ? place : first;
}

qsizetype lengthOfCharacter(QStringView text, qsizetype at)
{
    return text.at(at).isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate() ? 2 : 1;
}

bool lettersInOrder(QStringView title, QStringView term, QList<TextRange>* where)
{
    qsizetype met = 0;
    for (qsizetype at = 0; at < title.size() && met < term.size();) {
        const qsizetype length = lengthOfCharacter(title, at);
        if (title.at(at) == term.at(met) && length == lengthOfCharacter(term, met) &&
            title.at(at + length - 1) == term.at(met + length - 1)) {
            note(where, at, at + length);
            met += length;
        }
        at += length;
    }
    return met == term.size();
}

/// Looks for a term that is made of beginnings of the title's words, in their order. Only short words may be
/// left out between two of them: "fr" is Find and Replace.
class Initials
{
public:
    Initials(FoldedView title, QStringView term) : _title(title.text.left(UnitsWithInitials)), _term(term)
    {
        for (qsizetype at = 0; at < _title.size(); ++at)
            _starts |= quint64(title.wordStarts[at] != 0) << at;
    }

    [[nodiscard]] bool found()
    {
        quint64 places = _starts & _placesOf(_term.front());
        for (qsizetype next = 1; places && next < _term.size(); ++next) {
            _places.append(places);
            places = _placesOf(_term.at(next)) & ((places << 1U) | _wordsAfter(places));
        }
        _places.append(places);
        return places != 0;
    }

    /// After they were found.
    void tell(QList<TextRange>* where) const
    {
        if (!where)
            return;
        QVarLengthArray<int, UnitsWithInitials> units(_term.size());
        quint64 possible = _places.last();
        for (qsizetype letter = _term.size() - 1; letter >= 0; --letter) {
            units[letter] = static_cast<int>(std::bit_width(possible)) - 1;
            if (letter > 0)
                possible = _possibleBefore(units.at(letter), _places.at(letter - 1));
        }
        for (const int unit : std::as_const(units))
            note(where, unit, unit + 1);
    }

private:
    [[nodiscard]] quint64 _placesOf(QChar unit) const
    {
        quint64 places = 0;
        for (qsizetype at = 0; at < _title.size(); ++at)
            places |= quint64(_title.at(at) == unit) << at;
        return places;
    }

    /// Where a word begins that may follow one with a letter in `places`.
    [[nodiscard]] quint64 _wordsAfter(quint64 places) const
    {
        quint64 found = 0;
        bool mayFollow = false;
        for (quint64 left = _starts; left != 0;) {
            const quint64 start = left & -left;
            left -= start;
            const quint64 end = left & -left; // 0 behind the last word
            const quint64 word = end - start;
            if (mayFollow)
                found |= start;
            constexpr int BlankAndShortWord = 4;
            if (places & word)
                mayFollow = true;
            else if (std::popcount(word) > BlankAndShortWord)
                mayFollow = false;
        }
        return found;
    }

    /// Which of `places` a letter at `at` may follow; the same word goes first.
    [[nodiscard]] quint64 _possibleBefore(int at, quint64 places) const
    {
        const quint64 here = quint64(1) << at;
        if (const quint64 justBefore = places & (here >> 1U))
            return justBefore;
        quint64 possible = 0;
        for (quint64 left = places & (here - 1); left != 0; left &= left - 1) {
            const quint64 place = left & -left;
            if (_wordsAfter(place) & here)
                possible |= place;
        }
        return possible;
    }

    QStringView _title;
    QStringView _term;
    quint64 _starts = 0;
    QVarLengthArray<quint64, 16> _places; ///< of each letter of the term those that it may have
};

} // namespace

std::optional<MatchLevel> matchTerm(FoldedView title, QStringView term, QList<TextRange>* where)
{
    const qsizetype place = placeOf(title, term);
    if (place != NotFound && title.wordStarts[place]) {
        note(where, place, place + term.size());
        return MatchLevel::Words;
    }
    if (place == NotFound && !lettersInOrder(title.text, term, nullptr))
        return std::nullopt;
    // A single letter that begins a word has been found already.
    if (Initials initials(title, term); term.size() > 1 && initials.found()) {
        initials.tell(where);
        return MatchLevel::Initials;
    }
    if (place != NotFound) {
        note(where, place, place + term.size());
        return MatchLevel::Inside;
    }
    if (where)
        lettersInOrder(title.text, term, where);
    return MatchLevel::Letters;
}

} // namespace tarnwick
