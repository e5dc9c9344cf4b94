// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchView.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/qt/menu/MenuTitle.h"
#include "platform/qt/menu/SearchField.h"
#include "platform/qt/menu/SearchList.h"
#include "platform/qt/menu/SearchRowDelegate.h"
#include "platform/qt/menu/SearchRows.h"

#include <QAccessible>
#include <QEvent>
#include <QLabel>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr int MostRows = 14;
constexpr int RowsOfPage = 10;
constexpr int WidthInLetters = 56;

ChosenBefore& chosenBefore()
{
    static ChosenBefore chosen;
    return chosen;
}

/// An application is known by its menu bar; it is only about what goes first of two that are met alike.
QString nameOf(const Menu& root)
{
    QStringList titles;
    const auto& items = root.itemArray();
    for (const auto& item : items)
        titles.append(item->title());
    return titles.join(u'\n');
}

} // namespace

SearchView::SearchView(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open,
                       QWidget& menu)
    : QWidget(&menu), _search(root, open, &drawnTitle, nameOf(*root), chosenBefore()),
      _field(new SearchField(this)), _list(new SearchList(this)), _rows(new SearchRows(_search, this)),
      _state(new QLabel(this))
{
    setFont(menu.font());
    _field->setFont(font());
    _field->setPlaceholderText(tr("Search the menus"));
    _field->setAccessibleName(tr("Search the menus"));
    _list->setFont(font());
    _list->setAccessibleName(tr("Results"));
    _list->setModel(_rows);
    _list->setItemDelegate(new SearchRowDelegate(menu, _list));
    _state->setWordWrap(true);
    _quieten();
    connect(_field, &QLineEdit::textChanged, this, &SearchView::_typed);
    connect(_field, &SearchField::pressed, this, &SearchView::_pressed);
    connect(_list, &SearchList::pointedAt, this, &SearchView::_highlight);
    connect(_list, &SearchList::rowClicked, this, [this](int row) {
        _highlight(row);
        _choose();
    });
    _tellState();
    _readOn();
}

SearchView::~SearchView()
{
    end();
}

void SearchView::end()
{
    _timer.reset();
    _search.cancel();
}

void SearchView::setGreatestHeight(int height)
{
    _greatestHeight = height;
}

QSize SearchView::sizeHint() const
{
    const int rows = std::min(_rows->rowCount(), MostRows);
    int height = _heightAround() + _list->heightOf(rows);
    if (_greatestHeight > 0)
        height = std::min(height, std::max(_greatestHeight, _heightAround() + _list->heightOf(1)));
    return {WidthInLetters * fontMetrics().averageCharWidth(), height};
}

int SearchView::fullHeight() const
{
    const int line = fontMetrics().height();
    return _heightAround() + MostRows * (line + line / 2);
}

bool SearchView::event(QEvent* event)
{
    // The menu around it acts on the pointer in its own ways.
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return true;
    case QEvent::PaletteChange:
        _quieten();
        [[fallthrough]];
    default:
        return QWidget::event(event);
    }
}

/// Not in the palette's own colour for this: a dark palette that names a few colours has that of a light one.
void SearchView::_quieten()
{
    const QColor quiet = dimmed(palette().color(QPalette::Text));
    QPalette ofState;
    ofState.setColor(QPalette::WindowText, quiet);
    _state->setPalette(ofState);
    QPalette ofField;
    ofField.setColor(QPalette::PlaceholderText, quiet);
    _field->setPalette(ofField);
}

void SearchView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    _layOut();
}

int SearchView::_margin() const
{
    return fontMetrics().height() / 3;
}

int SearchView::_heightAround() const
{
    const int inner = WidthInLetters * fontMetrics().averageCharWidth() - 2 * _margin();
    return _field->sizeHint().height() + _state->heightForWidth(inner) + 4 * _margin();
}

void SearchView::_layOut()
{
    const int margin = _margin();
    const int inner = width() - 2 * margin;
    const int fieldHeight = _field->sizeHint().height();
    const int stateHeight = _state->heightForWidth(inner);
    _field->setGeometry(margin, margin, inner, fieldHeight);
    const int top = fieldHeight + 2 * margin;
    const int stateTop = height() - margin - stateHeight;
    _list->setGeometry(0, top, width(), std::max(0, stateTop - margin - top));
    _state->setGeometry(margin, stateTop, inner, stateHeight);
}

void SearchView::_typed(const QString& text)
{
    if (text.isEmpty()) {
        Q_EMIT left();
        return;
    }
    _search.setText(text);
    _rows->beginAnew();
    _list->forgetPointer();
    _list->scrollToTop();
    _list->highlight(_highlighted());
    if (!_highlighted())
        _field->tellFocus();
    _tellState();
    _announceState();
    Q_EMIT sizeChanged();
}

void SearchView::_pressed(SearchKey key)
{
    switch (key) {
    case SearchKey::Choose:
        _choose();
        break;
    case SearchKey::Leave:
        Q_EMIT left();
        break;
    case SearchKey::ShowInMenu:
        _showInMenu();
        break;
    case SearchKey::Up:
        _move(-1);
        break;
    case SearchKey::Down:
        _move(1);
        break;
    case SearchKey::PageUp:
        _move(-RowsOfPage);
        break;
    case SearchKey::PageDown:
        _move(RowsOfPage);
        break;
    case SearchKey::Text:
        break;
    }
}

void SearchView::_move(int by)
{
    const int count = _rows->rowCount();
    if (count == 0)
        return;
    const int from = _highlighted().value_or(by > 0 ? -1 : count);
    const bool single = by == 1 || by == -1;
    // From the end on to the other one, as in a menu; a page stops at the end.
    const int row = single ? (from + by + count) % count : std::clamp(from + by, 0, count - 1);
    _highlight(from == count && by < 0 && single ? count - 1 : row);
}

void SearchView::_highlight(int row)
{
    _search.highlight(row);
    _list->highlight(_highlighted());
}

std::optional<int> SearchView::_highlighted() const
{
    return _search.highlighted();
}

void SearchView::_choose()
{
    const auto row = _highlighted();
    if (!row)
        return;
    const int number = _search.rows().at(*row);
    const MenuEntry& entry = _search.entry(number);
    if (!entry.enabled)
        return;
    if (entry.item->hasSubmenu()) {
        Q_EMIT wantedInMenu(number);
        return;
    }
    _search.noteChosen(number);
    Q_EMIT chosen(number);
}

void SearchView::_showInMenu()
{
    if (const auto row = _highlighted())
        Q_EMIT wantedInMenu(_search.rows().at(*row));
}

void SearchView::_readOn()
{
    if (!_search.isFinished())
        _timer = Clock::shared().performAfterDelay(_search.delayOfNextStep(), [this] { _step(); });
}

void SearchView::_step()
{
    _search.step();
    _readOn();
    if (_search.hasQuery()) {
        _rows->extend();
        _list->highlight(_highlighted());
    }
    _tellState();
    // Not with each menu: that would never end.
    if (_search.isFinished())
        _announceState();
    Q_EMIT sizeChanged();
}

void SearchView::_tellState()
{
    const QString text = _stateText();
    if (text == _state->text())
        return;
    _state->setText(text);
    _state->setAccessibleName(text);
    _field->setAccessibleDescription(text);
}

void SearchView::_announceState()
{
    const QString text = _state->text();
    if (text.isEmpty() || text == std::exchange(_announced, text))
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(_state, text);
#else
    // Screen readers read a notification when it comes to show.
    QAccessibleEvent event(_state, QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
}

QString SearchView::_stateText() const
{
    QStringList sentences;
    if (_search.hasQuery())
        sentences.append(_resultsText());
    if (!_search.isFinished())
        return sentences.join(u'\n');
    qsizetype empty = 0;
    for (const UnsearchedMenu& menu : _search.unsearched())
        empty += menu.reason == UnsearchedMenu::Reason::Empty ? 1 : 0;
    if (empty > 0)
        sentences.append(tr("Menus that were not searched: %1. Open them in the application once.")
                             .arg(locale().toString(empty)));
    if (const qsizetype others = _search.unsearched().size() - empty; others > 0)
        sentences.append(tr("Menus that took too long: %1.").arg(locale().toString(others)));
    return sentences.join(u'\n');
}

QString SearchView::_resultsText() const
{
    if (_rows->rowCount() > 0)
        return tr("Results: %1").arg(locale().toString(_rows->rowCount()));
    return _search.isFinished() ? tr("Nothing is called so.") : tr("Searching...");
}

} // namespace tarnwick

#include "moc_SearchView.cpp"
