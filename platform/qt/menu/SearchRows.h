// SPDX-License-Identifier: MIT
#pragma once

#include "search/MenuSearch.h"

#include <QAbstractListModel>
#include <QList>
#include <QString>

namespace tarnwick {

/// What a search finds, as rows of a list.
class SearchRows final : public QAbstractListModel
{
    Q_OBJECT

public:
    /// `search` must outlive it.
    SearchRows(const MenuSearch& search, QObject* parent);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    /// For screen readers only: a row is drawn from the entry itself.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// What is greyed can be highlighted, as in a menu.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// There is another query.
    void beginAnew();
    /// The same query has found more; no row moves that is highlighted.
    void extend();

    [[nodiscard]] const MenuSearch& search() const { return _search; }
    /// The entry's number in the search.
    [[nodiscard]] int numberAt(const QModelIndex& index) const { return _rows.at(index.row()); }
    /// Where the entry with that number stands, −1 for nowhere.
    [[nodiscard]] int rowOf(int number) const { return static_cast<int>(_rows.indexOf(number)); }

private:
    [[nodiscard]] QString _spoken(int number) const;

    const MenuSearch& _search;
    QList<int> _rows;
};

/// The titles on the way to an entry, as a person reads them: "File › Export".
[[nodiscard]] QString shownPath(const QStringList& titles, Qt::LayoutDirection direction);

} // namespace tarnwick
