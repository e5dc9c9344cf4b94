// SPDX-License-Identifier: MIT
#include "search/MenuSearch.h"

#include "foundation/Clock.h"

#include <utility>

namespace tarnwick {

MenuSearch::MenuSearch(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open,
                       MenuCollector::ShownTitle shownTitle, QString application, ChosenBefore& chosenBefore)
    : _collector(root, open, std::move(shownTitle)), _application(std::move(application)),
      _chosenBefore(chosenBefore)
{
    while (_collector.isNextOpen())
        _collect();
}

bool MenuSearch::step()
{
    const bool more = _collect();
    if (hasQuery() && (!more || _isTimeToShow())) {
        _shownAt = Clock::shared().now();
        const QList<int> ranked = _index.ranked();
        _results.extend(ranked, _isFirstMeant(ranked));
    }
    return more;
}

bool MenuSearch::_isTimeToShow() const
{
    return _results.rows().isEmpty() || Clock::shared().now() - _shownAt >= TimeBetweenShowings;
}

bool MenuSearch::_collect()
{
    auto menu = _collector.step();
    if (menu) {
        for (MenuEntry& entry : menu->entries)
            entry.lastChosen = _chosenBefore.when(_application, menu->path + QStringList(entry.title));
        _index.add(*menu);
    }
    return !isFinished();
}

void MenuSearch::cancel()
{
    _collector.cancel();
}

void MenuSearch::setText(const QString& typed)
{
    _shownAt = Clock::shared().now();
    _index.setQuery(SearchQuery::of(typed));
    const QList<int> ranked = _index.ranked();
    _results.begin(ranked, _isFirstMeant(ranked));
}

bool MenuSearch::_isFirstMeant(const QList<int>& ranked) const
{
    return isFinished() || (!ranked.isEmpty() && _index.level(ranked.first()) <= MatchLevel::Initials);
}

void MenuSearch::noteChosen(int number)
{
    _chosenBefore.note(_application, path(number) + QStringList(entry(number).title));
}

} // namespace tarnwick
