// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchRows.h"

#include "menu/MenuItem.h"
#include "platform/qt/menu/KeyEquivalentText.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

SearchRows::SearchRows(const MenuSearch& search, QObject* parent)
    : QAbstractListModel(parent), _search(search)
{
}

int SearchRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

QVariant SearchRows::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= _rows.size())
        return {};
    if (role == Qt::DisplayRole)
        return _search.entry(numberAt(index)).title;
    if (role == Qt::AccessibleTextRole)
        return _spoken(numberAt(index));
    return {};
}

Qt::ItemFlags SearchRows::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

void SearchRows::beginAnew()
{
    beginResetModel();
    _rows = _search.rows();
    endResetModel();
}

void SearchRows::extend()
{
    if (_rows == _search.rows())
        return;
    const int before = rowCount();
    const int after = static_cast<int>(_search.rows().size());
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        _rows = _search.rows();
        endInsertRows();
    } else {
        _rows = _search.rows();
    }
    Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

QString SearchRows::_spoken(int number) const
{
    const MenuEntry& entry = _search.entry(number);
    QStringList parts{entry.title};
    const QStringList& path = _search.path(number);
    if (!path.isEmpty())
        parts.append(path.join(u", "_s));
    const QString shortcut =
        keyEquivalentText(entry.item->keyEquivalent(), entry.item->keyEquivalentModifierMask());
    if (!shortcut.isEmpty())
        parts.append(shortcut);
    return parts.join(u", "_s);
}

QString shownPath(const QStringList& titles, Qt::LayoutDirection direction)
{
    constexpr QChar Isolate(0x2068);
    constexpr QChar PopIsolate(0x2069);
    QStringList isolated;
    for (const QString& title : titles)
        isolated.append(Isolate + title + PopIsolate);
    return isolated.join(direction == Qt::RightToLeft ? u" \u2039 "_s : u" \u203a "_s);
}

} // namespace tarnwick

#include "moc_SearchRows.cpp"
