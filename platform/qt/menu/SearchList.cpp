// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchList.h"

#include <QAccessible>
#include <QMouseEvent>

#include <algorithm>

namespace tarnwick {

SearchList::SearchList(QWidget* parent) : QListView(parent)
{
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
}

void SearchList::highlight(std::optional<int> row)
{
    const QModelIndex wanted = row && model() ? model()->index(*row, 0) : QModelIndex();
    if (wanted == currentIndex())
        return;
    setCurrentIndex(wanted);
    if (!wanted.isValid() || !QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(wanted.row());
    QAccessible::updateAccessibility(&event);
}

int SearchList::heightOf(int rows) const
{
    return rows > 0 ? rows * std::max(1, sizeHintForRow(0)) : 0;
}

void SearchList::mouseMoveEvent(QMouseEvent* event)
{
    if (const auto row = _rowOf(*event))
        Q_EMIT pointedAt(*row);
}

void SearchList::mousePressEvent(QMouseEvent* event)
{
    if (const auto row = _rowOf(*event))
        Q_EMIT pointedAt(*row);
}

void SearchList::mouseReleaseEvent(QMouseEvent* event)
{
    if (const auto row = _rowOf(*event); row && event->button() == Qt::LeftButton)
        Q_EMIT rowClicked(*row);
}

void SearchList::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

std::optional<int> SearchList::_rowOf(const QMouseEvent& event)
{
    const QPoint place = event.globalPosition().toPoint();
    if (!_pointer)
        _pointer.emplace(place);
    const QModelIndex index = indexAt(event.position().toPoint());
    if (!_pointer->follow(place) || !index.isValid())
        return std::nullopt;
    return index.row();
}

} // namespace tarnwick

#include "moc_SearchList.cpp"
