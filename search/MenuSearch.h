// SPDX-License-Identifier: MIT
#pragma once

#include "search/ChosenBefore.h"
#include "search/MenuCollector.h"
#include "search/ResultList.h"
#include "search/SearchIndex.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

class Menu;
class MenuItem;

/// One search in a menu bar, from its beginning to a choice or its end. What is open is found from the first
/// query on; step() reads the rest, menu by menu. GUI thread only.
class MenuSearch
{
public:
    /// `root` is open, and so are `open`, menus below it. `chosenBefore` is that of the program.
    MenuSearch(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open,
               MenuCollector::ShownTitle shownTitle, QString application, ChosenBefore& chosenBefore);

    /// In seconds: showing what is found costs more than reading a menu.
    static constexpr double TimeBetweenShowings = 0.05;

    /// Reads one more menu; to be called from an event of its own. What is found in it is shown among the
    /// rows by the end of the reading, and mostly before. Whether another step is needed.
    bool step();
    /// In seconds.
    [[nodiscard]] double delayOfNextStep() const { return _collector.delayOfNextStep(); }
    /// Reads nothing more. What was found stays.
    void cancel();
    [[nodiscard]] bool isFinished() const { return _collector.isFinished(); }

    void setText(const QString& typed);
    [[nodiscard]] bool hasQuery() const { return !_index.query().isEmpty(); }

    /// The entries that are found, as numbers that last as long as the search.
    [[nodiscard]] const QList<int>& rows() const { return _results.rows(); }
    /// Before all is read, nothing is highlighted of its own accord that is only somewhere in a title or a
    /// path: Return would choose it while what is meant has still to come.
    [[nodiscard]] std::optional<int> highlighted() const { return _results.highlighted(); }
    void highlight(std::optional<int> row) { _results.highlight(row); }

    [[nodiscard]] const MenuEntry& entry(int number) const { return _index.entry(number); }
    /// The titles of the menus on the way to it, and the entries that hold them.
    [[nodiscard]] const QStringList& path(int number) const { return _index.path(number); }
    [[nodiscard]] QList<int> holders(int number) const { return _index.holders(number); }
    [[nodiscard]] QList<TextRange> marks(int number) const { return _index.marks(number); }
    [[nodiscard]] std::optional<MatchLevel> level(int number) const { return _index.level(number); }

    [[nodiscard]] const QList<UnsearchedMenu>& unsearched() const { return _collector.unsearched(); }

    /// Remembers it for later searches in this application.
    void noteChosen(int number);

private:
    bool _collect();
    [[nodiscard]] bool _isTimeToShow() const;
    [[nodiscard]] bool _isFirstMeant(const QList<int>& ranked) const;

    MenuCollector _collector;
    SearchIndex _index;
    ResultList _results;
    double _shownAt = 0; ///< of the clock
    QString _application;
    ChosenBefore& _chosenBefore;
};

} // namespace tarnwick
