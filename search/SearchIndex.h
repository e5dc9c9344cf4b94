// SPDX-License-Identifier: MIT
#pragma once

#include "search/MenuEntry.h"
#include "search/SearchQuery.h"
#include "search/TermMatch.h"
#include "search/TextRange.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwick {

/// The entries that were collected, folded once, and which of them a query finds. An entry is named by its
/// number.
///
/// The order of what is found: the better level first; in one level what can be chosen before what is greyed;
/// then what was chosen last; then what is reached through fewer menus, and of these what one reads first in
/// the menu bar. So "saveas" finds File > Save As… before File > Templates > Save as Template…, which a
/// reader passes earlier. A greyed entry that is met better stays before an enabled one that is met less
/// well: who types "paste" means Paste, and is not to press Paste Special because of it.
class SearchIndex
{
public:
    /// The root first; then each behind the one that its holder is in.
    void add(const CollectedMenu& menu);

    [[nodiscard]] int size() const { return static_cast<int>(_entries.size()); }
    [[nodiscard]] const MenuEntry& entry(int number) const { return _entries.at(number); }
    /// The titles of the menus on the way to it, without its own.
    [[nodiscard]] const QStringList& path(int number) const;
    /// The numbers of the entries that hold the menus on the way to it, outermost first.
    [[nodiscard]] QList<int> holders(int number) const;

    void setQuery(const SearchQuery& query);
    [[nodiscard]] const SearchQuery& query() const { return _query; }

    /// What the query finds, the best first; with an empty one nothing.
    [[nodiscard]] QList<int> ranked() const;
    /// Nothing when the query does not find it.
    [[nodiscard]] std::optional<MatchLevel> level(int number) const;
    /// The parts of the title that the query meets, in order, apart from each other, and none of them empty.
    /// Without any when it is found by its path alone.
    [[nodiscard]] QList<TextRange> marks(int number) const;

private:
    /// What each query looks at, in as little memory as will do.
    struct Record
    {
        quint64 letters = 0;
        qsizetype begin = 0; ///< in the titles
        int length = 0;
        int menu = 0;
        int heldMenu = -1;
        quint8 greyed = 0;
    };
    struct MenuRecord
    {
        QStringList path;
        QStringList foldedPath;
        quint64 letters = 0;
        int holder = -1;
        int first = 0; ///< of its entries
        int end = 0;
        quint64 termsInPath = 0; ///< a bit for each of the first terms of the query
    };

    [[nodiscard]] const std::vector<int>& _inMenuOrder() const;
    void _findTermsIn(MenuRecord& menu) const;
    void _match(int number);
    [[nodiscard]] quint8 _rankOf(const Record& record) const;
    [[nodiscard]] bool _isInPath(const Record& record, qsizetype term) const;
    [[nodiscard]] FoldedView _titleOf(const Record& record) const;

    QList<MenuEntry> _entries;
    QList<MenuRecord> _menus;
    std::vector<Record> _records;
    std::vector<quint8> _ranks;
    mutable std::vector<int> _menuOrder; ///< of as many as there were when it was asked for last
    QString _titles;
    QByteArray _wordStarts;
    SearchQuery _query;
    bool _anyChosen = false;
};

} // namespace tarnwick
