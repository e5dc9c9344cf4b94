// SPDX-License-Identifier: MIT
#include "search/SearchIndex.h"

#include "search/FoldedText.h"

#include <algorithm>
#include <array>

namespace tarnwick {

namespace {

// A rank is a level and whether the entry is greyed.
constexpr std::size_t Ranks = 2 * (static_cast<std::size_t>(MatchLevel::Letters) + 1);
constexpr quint8 NotFound = 0xFF;

/// What stands behind these in a query is not looked for in paths.
constexpr qsizetype TermsForPaths = 64;

constexpr std::size_t at(int number)
{
    return static_cast<std::size_t>(number);
}

/// The parts of the title that lie behind parts of its folded form, in order and apart.
QList<TextRange> partsOfTitle(QList<TextRange> folded, const QList<TextRange>& sources)
{
    QList<TextRange> parts;
    std::sort(folded.begin(), folded.end(),
              [](const TextRange& one, const TextRange& other) { return one.begin < other.begin; });
    for (const TextRange& range : std::as_const(folded)) {
        for (qsizetype unit = range.begin; unit < range.end; ++unit) {
            const TextRange source = sources.at(unit);
            if (!parts.isEmpty() && source.begin <= parts.last().end)
                parts.last().end = std::max(parts.last().end, source.end);
            else
                parts.append(source);
        }
    }
    return parts;
}

} // namespace

void SearchIndex::add(const CollectedMenu& menu)
{
    MenuRecord menuRecord;
    menuRecord.first = size();
    menuRecord.end = size() + static_cast<int>(menu.entries.size());
    menuRecord.path = menu.path;
    menuRecord.holder = menu.holder;
    for (const QString& title : menu.path) {
        menuRecord.foldedPath.append(foldedText(title).text);
        menuRecord.letters |= lettersOf(menuRecord.foldedPath.last());
    }
    _findTermsIn(menuRecord);
    const int menuNumber = static_cast<int>(_menus.size());
    if (menu.holder >= 0)
        _records[at(menu.holder)].heldMenu = menuNumber;
    for (const MenuEntry& entry : menu.entries) {
        const FoldedText folded = foldedText(entry.title);
        _records.push_back({lettersOf(folded.text), _titles.size(), static_cast<int>(folded.text.size()),
                            menuNumber, -1, static_cast<quint8>(entry.enabled ? 0 : 1)});
        _titles.append(folded.text);
        _wordStarts.append(folded.wordStarts);
        _entries.append(entry);
        _anyChosen = _anyChosen || entry.lastChosen > 0;
    }
    _ranks.resize(_records.size(), NotFound);
    _menus.append(menuRecord);
    for (int number = menuRecord.first; number < size(); ++number)
        _match(number);
}

const std::vector<int>& SearchIndex::_inMenuOrder() const
{
    if (_menuOrder.size() == _records.size())
        return _menuOrder;
    _menuOrder.clear();
    _menuOrder.reserve(_records.size());
    QList<int> menus{0};
    for (qsizetype i = 0; i < menus.size(); ++i) {
        const MenuRecord& menu = _menus.at(menus.at(i));
        for (int number = menu.first; number < menu.end; ++number) {
            _menuOrder.push_back(number);
            if (const int held = _records[at(number)].heldMenu; held >= 0)
                menus.append(held);
        }
    }
    return _menuOrder;
}

const QStringList& SearchIndex::path(int number) const
{
    return _menus.at(_records[at(number)].menu).path;
}

QList<int> SearchIndex::holders(int number) const
{
    QList<int> found;
    int holder = _menus.at(_records[at(number)].menu).holder;
    while (holder >= 0) {
        found.prepend(holder);
        holder = _menus.at(_records[at(holder)].menu).holder;
    }
    return found;
}

void SearchIndex::setQuery(const SearchQuery& query)
{
    const bool narrower = query.narrows(_query);
    _query = query;
    for (MenuRecord& menu : _menus)
        _findTermsIn(menu);
    for (int number = 0; number < size(); ++number) {
        if (!narrower || _ranks[at(number)] != NotFound)
            _match(number);
    }
}

void SearchIndex::_findTermsIn(MenuRecord& menu) const
{
    menu.termsInPath = 0;
    const qsizetype terms = std::min(_query.terms.size(), TermsForPaths);
    for (qsizetype i = 0; i < terms; ++i) {
        const SearchQuery::Term& term = _query.terms.at(i);
        if ((term.letters & ~menu.letters) == 0 &&
            std::any_of(menu.foldedPath.cbegin(), menu.foldedPath.cend(),
                        [&term](const QString& title) { return title.contains(term.text); }))
            menu.termsInPath |= quint64(1) << i;
    }
}

void SearchIndex::_match(int number)
{
    _ranks[at(number)] = _rankOf(_records[at(number)]);
}

quint8 SearchIndex::_rankOf(const Record& record) const
{
    if (_query.isEmpty() || (_query.letters & ~(record.letters | _menus.at(record.menu).letters)) != 0)
        return NotFound;
    const FoldedView title = _titleOf(record);
    auto worst = MatchLevel::Words;
    for (qsizetype i = 0; i < _query.terms.size(); ++i) {
        const SearchQuery::Term& term = _query.terms.at(i);
        auto found = (term.letters & ~record.letters) == 0 ? matchTerm(title, term.text) : std::nullopt;
        if ((!found || *found > MatchLevel::Path) && _isInPath(record, i))
            found = MatchLevel::Path;
        if (!found)
            return NotFound;
        worst = std::max(worst, *found);
    }
    if (worst == MatchLevel::Words && title.text.startsWith(_query.text))
        worst = title.text.size() == _query.text.size() ? MatchLevel::Exact : MatchLevel::Beginning;
    return static_cast<quint8>(2 * static_cast<quint8>(worst) + record.greyed);
}

bool SearchIndex::_isInPath(const Record& record, qsizetype term) const
{
    return term < TermsForPaths && ((_menus.at(record.menu).termsInPath >> term) & 1U) != 0;
}

FoldedView SearchIndex::_titleOf(const Record& record) const
{
    return {QStringView(_titles).sliced(record.begin, record.length), _wordStarts.constData() + record.begin};
}

QList<int> SearchIndex::ranked() const
{
    std::array<qsizetype, Ranks + 1> begins{};
    for (const quint8 rank : _ranks) {
        if (rank != NotFound)
            ++begins[rank + std::size_t(1)];
    }
    for (std::size_t rank = 1; rank <= Ranks; ++rank)
        begins[rank] += begins[rank - 1];
    QList<int> found(begins[Ranks]);
    auto next = begins;
    for (const int number : _inMenuOrder()) {
        if (const quint8 rank = _ranks[at(number)]; rank != NotFound)
            found[next[rank]++] = number;
    }
    if (!_anyChosen)
        return found;
    const auto lastChosen = [this](int number) { return _entries.at(number).lastChosen; };
    for (std::size_t rank = 0; rank < Ranks; ++rank) {
        const auto begin = found.begin() + begins[rank];
        const auto end = std::stable_partition(begin, found.begin() + begins[rank + 1],
                                               [&](int number) { return lastChosen(number) > 0; });
        std::stable_sort(begin, end, [&](int one, int other) { return lastChosen(one) > lastChosen(other); });
    }
    return found;
}

std::optional<MatchLevel> SearchIndex::level(int number) const
{
    const quint8 rank = _ranks[at(number)];
    return rank == NotFound ? std::nullopt : std::optional(static_cast<MatchLevel>(rank / 2));
}

QList<TextRange> SearchIndex::marks(int number) const
{
    const auto met = level(number);
    if (!met)
        return {};
    const FoldedView title = _titleOf(_records[at(number)]);
    QList<TextRange> where;
    if (*met <= MatchLevel::Beginning) {
        where.append({0, _query.text.size()});
    } else {
        for (qsizetype i = 0; i < _query.terms.size(); ++i) {
            QList<TextRange> ofTerm;
            const auto found = matchTerm(title, _query.terms.at(i).text, &ofTerm);
            if (found && (*found < MatchLevel::Path || !_isInPath(_records[at(number)], i)))
                where.append(ofTerm);
        }
    }
    return partsOfTitle(where, sourcesOfFoldedText(_entries.at(number).title));
}

} // namespace tarnwick
