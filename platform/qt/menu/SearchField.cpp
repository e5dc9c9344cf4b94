// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchField.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>
#include <cstdlib>

namespace tarnwick {

SearchField::SearchField(QWidget* parent) : QLineEdit(parent) {}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    event->accept(); // nothing is for the menu around it
    // The key that began the search, and is held down a moment longer.
    if (event->isAutoRepeat() && text().isEmpty() && beginsSearch(*event))
        return;
    if (_composes(*event))
        return;
    // As the arrows move in it, whichever way the menus run.
    const auto direction = text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const SearchKey key = searchKey(*event, text().isEmpty() ? layoutDirection() : direction);
    if (_isTexts(key))
        QLineEdit::keyPressEvent(event);
    else
        Q_EMIT pressed(key);
    event->accept();
}

bool SearchField::_composes(const QKeyEvent& event)
{
    constexpr auto OfShortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!_compose || (event.modifiers() & OfShortcuts))
        return false;
    const auto text = _compose(event.nativeVirtualKey());
    if (text && !text->isEmpty())
        insert(*text);
    return text.has_value();
}

bool SearchField::_isTexts(SearchKey key) const
{
    if (key == SearchKey::ShowInMenu)
        return hasSelectedText() || cursorPosition() < text().size();
    return key == SearchKey::Text;
}

void SearchField::showEvent(QShowEvent* event)
{
    QLineEdit::showEvent(event);
    QFocusEvent focus(QEvent::FocusIn, Qt::PopupFocusReason);
    focusInEvent(&focus);
    tellFocus();
}

QRect SearchField::placeOf(int position) const
{
    const int from = std::min(position, cursorPosition());
    const int between = std::abs(position - cursorPosition());
    const bool before = (position < cursorPosition()) != text().isRightToLeft();
    const int way = fontMetrics().horizontalAdvance(text().mid(from, between));
    return cursorRect().translated(before ? -way : way, 0);
}

void SearchField::tellFocus()
{
    QAccessibleEvent told(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&told);
}

void SearchField::focusOutEvent(QFocusEvent* /*event*/)
{
    // Where a window of ours had the focus, it goes as the menu comes: the cursor stays.
}

void SearchField::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept(); // a menu within the menu would take its keys
}

} // namespace tarnwick

#include "moc_SearchField.cpp"
