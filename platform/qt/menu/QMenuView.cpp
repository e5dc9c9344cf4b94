// SPDX-License-Identifier: MIT
#include "platform/qt/menu/QMenuView.h"

#include "menu/AlternateFolding.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/qt/menu/MenuStyle.h"
#include "platform/qt/menu/MenuTitle.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/menu/OpenPopUps.h"
#include "platform/qt/menu/PopUpBeginning.h"
#include "platform/qt/menu/PopUpGeometry.h"
#include "platform/qt/menu/SearchAccessible.h"
#include "platform/qt/menu/SearchField.h"
#include "platform/qt/menu/SearchKeys.h"
#include "platform/qt/menu/SearchView.h"

#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStyleOptionMenuItem>

#include <algorithm>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tarnwick {

namespace {

/// After so many the toolkit takes the pointer for moved, wherever it believes it to have been before.
constexpr int MotionsThatCount = 8;

QRect screenGeometryAt(QPoint point)
{
    const QScreen* screen = QGuiApplication::screenAt(point);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}

/// Thousands of small pieces, between which others lie, are kept by the C library otherwise.
void giveMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

QStyle* menuStyle()
{
    static auto* const style = [] {
        auto* made = new MenuStyle;
        made->setParent(qApp);
        return made;
    }();
    return style;
}

} // namespace

QMenuView::QMenuView(std::shared_ptr<Menu> menu, QWidget* parent) : QMenu(parent), _menu(std::move(menu))
{
    setStyle(menuStyle());
    // The toolkit takes this back as the menu pops up and then, only then, tells window manager and
    // compositor that the window is a pop-up menu.
    setAttribute(Qt::WA_X11NetWmWindowTypeDropDownMenu);
    connect(this, &QMenu::aboutToShow, this, &QMenuView::_fill);
    connect(this, &QMenu::aboutToHide, this, &QMenuView::_closed);
    connect(this, &QMenu::hovered, this, &QMenuView::_noticeHighlight);
    connect(this, &QMenu::triggered, this, [this](const QAction* action) {
        // Submenus' actions are told here, too; their own view tells them.
        if (const Entry* entry = _entryOf(action); entry && !entry->submenu)
            Q_EMIT itemChosen(_menu, entry->item);
    });
}

QMenuView::~QMenuView()
{
    _closed();
}

void QMenuView::setMenu(std::shared_ptr<Menu> menu)
{
    _menu = std::move(menu);
}

void QMenuView::makeWindow()
{
    create();
}

void QMenuView::setWindowPreparation(std::function<void(QWidget&)> prepare)
{
    _prepareWindow = std::move(prepare);
}

void QMenuView::setPointerAtOpening(QPoint place)
{
    _pointer = std::make_shared<PointerTravel>(place);
}

void QMenuView::openAt(QPoint corner)
{
    _corner = corner;
    _fill();
    if (PopUpBeginning::current() == PopUpBeginning::Kind::Search)
        _makeSearch();
    popup(popUpPosition(corner, sizeHint(), screenGeometryAt(corner)));
    if (_search)
        _fitSearch();
}

void QMenuView::setHeldModifiers(quint64 flags)
{
    if (flags == _heldModifiers)
        return;
    _heldModifiers = flags;
    _showAlternates();
    for (const Entry& entry : std::as_const(_entries))
        if (entry.submenu)
            entry.submenu->setHeldModifiers(flags);
}

bool QMenuView::coversGlobal(QPoint point) const
{
    if (!isVisible())
        return false;
    return geometry().contains(point) ||
           std::any_of(_entries.cbegin(), _entries.cend(), [&](const Entry& entry) {
               return entry.submenu && entry.submenu->coversGlobal(point);
           });
}

QSize QMenuView::sizeHint() const
{
    if (_search) {
        const int frame = 2 * style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this);
        return _search->sizeHint() + QSize(frame, frame);
    }
    const int line = fontMetrics().height();
    return QMenu::sizeHint().expandedTo(QSize(2 * line, line / 2));
}

void QMenuView::_fill()
{
    if (std::exchange(_filled, true))
        return;
    if (_prepareWindow)
        _prepareWindow(*this);
    MenuDelegate* delegate = _menu->delegate();
    if (delegate)
        delegate->menuNeedsUpdate(*_menu);
    _menu->update();
    if (delegate)
        delegate->menuWillOpen(*_menu);
    _open = true;

    for (const Entry& entry : std::as_const(_entries))
        delete entry.submenu;
    _entries.clear();
    clear();
    if (const auto font = _menu->font())
        setFont(*font);
    _shownItems = _menu->itemArray();
    for (const auto& item : std::as_const(_shownItems))
        _addEntry(item);
    _showAlternates();
}

void QMenuView::_addEntry(const std::shared_ptr<MenuItem>& item)
{
    if (item->isSeparatorItem()) {
        addSeparator();
        return;
    }
    auto* action = new QAction(menuActionText(*item, layoutDirection()), this);
    action->setMenuRole(QAction::NoRole);
    action->setEnabled(item->isEnabled());
    if (item->attributedTitle())
        action->setFont(menuItemFont(*item, font()));
    if (item->state() == MenuItem::State::On) {
        action->setCheckable(true);
        action->setChecked(true);
    }
    QMenuView* submenu = nullptr;
    if (item->hasSubmenu()) {
        submenu = new QMenuView(item->submenu(), this);
        submenu->_heldModifiers = _heldModifiers;
        submenu->_prepareWindow = _prepareWindow;
        submenu->_pointer = _pointer;
        connect(submenu, &QMenuView::itemChosen, this, &QMenuView::itemChosen);
        action->setMenu(submenu);
    }
    addAction(action);
    _entries.append({action, item, submenu});
}

void QMenuView::_closed()
{
    if (!std::exchange(_open, false))
        return;
    _filled = false;
    _highlighted = nullptr;
    _wanted.clear();
    _dropSearch();
    _letterSearch.forget();
    if (MenuDelegate* delegate = _menu->delegate())
        delegate->menuDidClose(*_menu);
}

void QMenuView::_showAlternates()
{
    const bool anyAlternate = std::any_of(_entries.cbegin(), _entries.cend(),
                                          [](const Entry& entry) { return entry.item->isAlternate(); });
    // A menu that was rebuilt behind the one on the screen says nothing about it.
    if (_search || !anyAlternate || _menu->itemArray() != _shownItems)
        return;
    const auto shown = itemsShownWithModifiers(*_menu, _heldModifiers);
    const QAction* active = activeAction();
    for (const Entry& entry : std::as_const(_entries))
        entry.action->setVisible(shown.contains(entry.item));
    if (active && !active->isVisible())
        _highlight(_shownInPlaceOf(active));
}

QAction* QMenuView::_shownInPlaceOf(const QAction* hidden) const
{
    // An item stands before its alternates, which have its key equivalent.
    qsizetype first = _entryOf(hidden) - _entries.constData();
    const auto keyEquivalentAt = [this](qsizetype index) { return _entries.at(index).item->keyEquivalent(); };
    while (first > 0 && _entries.at(first).item->isAlternate() &&
           keyEquivalentAt(first - 1) == keyEquivalentAt(first))
        --first;
    const auto shown = std::find_if(_entries.cbegin() + first, _entries.cend(),
                                    [](const Entry& entry) { return entry.action->isVisible(); });
    return shown == _entries.cend() ? nullptr : shown->action;
}

bool QMenuView::event(QEvent* event)
{
    const bool handled = QMenu::event(event);
    if (_open)
        _noticeHighlight();
    return handled;
}

void QMenuView::_noticeHighlight()
{
    const QAction* active = activeAction();
    if (active == _highlighted)
        return;
    _highlighted = active;
    const Entry* entry = active ? _entryOf(active) : nullptr;
    if (MenuDelegate* delegate = _menu->delegate())
        delegate->menuWillHighlightItem(*_menu, entry ? entry->item.get() : nullptr);
}

void QMenuView::keyPressEvent(QKeyEvent* event)
{
    _wanted.clear();
    if (_moveToLetter(*event))
        return;
    if (beginsSearch(*event)) {
        _outermost().beginSearch();
        return;
    }
    QMenu::keyPressEvent(event);
    // From the top to the last entry the toolkit moves the highlight without scrolling.
    QAction* active = activeAction();
    if (active && isVisible() && !rect().contains(actionGeometry(active)))
        _highlight(active);
}

void QMenuView::enterEvent(QEnterEvent* event)
{
    if (_search)
        return;
    QMenu::enterEvent(event);
    _toldOfMotions = false;
    // There may be no other motion than the one that led here.
    if (_pointer && _pointer->enter(event->globalPosition().toPoint()))
        _tellOfMotions(*event);
}

void QMenuView::mouseMoveEvent(QMouseEvent* event)
{
    if (_pointerHasMoved(*event) && !_search)
        QMenu::mouseMoveEvent(event);
}

void QMenuView::mousePressEvent(QMouseEvent* event)
{
    const bool beside = !rect().contains(event->position().toPoint());
    if (_pointerHasMoved(*event) && !_search)
        QMenu::mousePressEvent(event);
    else if (!_search || beside)
        closeAllPopUps();
}

void QMenuView::mouseReleaseEvent(QMouseEvent* event)
{
    if (_pointerHasMoved(*event) && !_search)
        QMenu::mouseReleaseEvent(event);
}

bool QMenuView::_pointerHasMoved(const QMouseEvent& event)
{
    if (!_pointer)
        return true;
    if (!_pointer->follow(event.globalPosition().toPoint()))
        return false;
    _tellOfMotions(event);
    return true;
}

void QMenuView::_tellOfMotions(const QSinglePointEvent& event)
{
    if (std::exchange(_toldOfMotions, true))
        return;
    QMouseEvent motion(QEvent::MouseMove, event.position(), event.globalPosition(), Qt::NoButton,
                       event.buttons() & ~event.button(), event.modifiers());
    for (int count = 0; count < MotionsThatCount; ++count)
        QMenu::mouseMoveEvent(&motion);
}

bool QMenuView::_moveToLetter(const QKeyEvent& event)
{
    const auto typingModifiers = Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier;
    const QString letter = event.text();
    const auto now = static_cast<qint64>(event.timestamp());
    if ((event.modifiers() & ~typingModifiers) || letter.isEmpty() || !letter.front().isPrint())
        return false;
    // A blank alone is for the toolkit, which may choose the highlighted entry.
    if (letter.front().isSpace() && !_letterSearch.isUnderWay(now))
        return false;

    QStringList titles;
    int current = -1;
    for (const Entry& entry : std::as_const(_entries)) {
        if (entry.action == activeAction())
            current = static_cast<int>(titles.size());
        const bool selectable = entry.action->isVisible() && entry.action->isEnabled();
        titles.append(selectable ? drawnTitle(*entry.item) : QString());
    }
    if (const auto found = _letterSearch.type(letter, now, titles, current))
        _highlight(_entries.at(*found).action);
    else if (beginsSearch(event))
        return false;
    return true;
}

void QMenuView::_highlight(QAction* action)
{
    // The toolkit would open the entry's submenu at once; a disabled one stays closed.
    QMenu* submenu = action ? action->menu() : nullptr;
    if (submenu)
        submenu->setAttribute(Qt::WA_Disabled, true);
    setActiveAction(action);
    if (submenu)
        submenu->setAttribute(Qt::WA_Disabled, false);
}

void QMenuView::beginSearch()
{
    if (_search || !_open)
        return;
    _makeSearch();
    for (const Entry& entry : std::as_const(_entries))
        if (entry.submenu && entry.submenu->isVisible())
            entry.submenu->close();
    setActiveAction(nullptr);
    _fitSearch();
}

void QMenuView::_makeSearch()
{
    _letterSearch.forget();
    _search = new SearchView(_menu, _openSubmenus(), *this);
    _search->field().setComposition(_compose);
    connect(_search, &SearchView::left, this, &QMenuView::_leaveSearch);
    connect(_search, &SearchView::chosen, this, &QMenuView::_choose);
    connect(_search, &SearchView::wantedInMenu, this, &QMenuView::_showInMenu);
    connect(_search, &SearchView::sizeChanged, this, &QMenuView::_fitSearch);
    makeSearchAccessible();
    beAnotherAccessible(*this, isVisible());
    connect(&MenuTracking::shared(), &MenuTracking::ended, qApp, &giveMemoryBack,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

void QMenuView::_dropSearch()
{
    if (!_search)
        return;
    // It may be what tells that it is over.
    SearchView* search = std::exchange(_search, nullptr);
    search->disconnect(this);
    search->end();
    search->field().clearFocus();
    search->hide();
    search->deleteLater();
    beAnotherAccessible(*this, _open);
}

void QMenuView::_leaveSearch()
{
    _dropSearch();
    _showAlternates();
    const QSize size = sizeHint();
    setGeometry(QRect(popUpPosition(_corner, size, screenGeometryAt(_corner)), size));
    update();
}

void QMenuView::_fitSearch()
{
    const QRect screen = screenGeometryAt(_corner);
    const int frame = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this);
    _search->setGreatestHeight(screen.height() - 2 * frame);
    const QSize full(sizeHint().width(), std::min(_search->fullHeight() + 2 * frame, screen.height()));
    const QPoint corner = shiftedInto(pos(), full, screen);
    const QRect wanted(corner, sizeHint());
    if (geometry() != wanted)
        setGeometry(wanted);
    _search->setGeometry(rect().adjusted(frame, frame, -frame, -frame));
    _search->show();
    if (focusWidget() != &_search->field())
        _search->field().setFocus(Qt::PopupFocusReason);
}

void QMenuView::_choose(int number)
{
    const MenuEntry entry = _search->search().entry(number);
    Q_EMIT itemChosen(entry.menu, entry.item);
    close();
}

void QMenuView::_showInMenu(int number)
{
    QList<Place> way;
    const MenuSearch& search = _search->search();
    const auto numbers = search.holders(number) + QList<int>{number};
    for (const int each : numbers) {
        const MenuEntry& entry = search.entry(each);
        way.append({entry.menu->indexOfItem(entry.item.get()), entry.title});
    }
    _leaveSearch();
    _wanted = way;
}

void QMenuView::paintEvent(QPaintEvent* event)
{
    if (!_search) {
        QMenu::paintEvent(event);
        if (!_wanted.isEmpty())
            QMetaObject::invokeMethod(this, &QMenuView::_goOnToWanted, Qt::QueuedConnection);
        return;
    }
    // The menu's ground and frame without its entries.
    QPainter painter(this);
    QStyleOptionMenuItem ground;
    ground.initFrom(this);
    ground.state = QStyle::State_None;
    ground.checkType = QStyleOptionMenuItem::NotCheckable;
    style()->drawPrimitive(QStyle::PE_PanelMenu, &ground, &painter, this);
    ground.menuItemType = QStyleOptionMenuItem::EmptyArea;
    style()->drawControl(QStyle::CE_MenuEmptyArea, &ground, &painter, this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.state = QStyle::State_None;
    frame.lineWidth = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, this);
    style()->drawPrimitive(QStyle::PE_FrameMenu, &frame, &painter, this);
}

void QMenuView::_goOnToWanted()
{
    if (_wanted.isEmpty())
        return;
    const QList<Place> way = std::exchange(_wanted, {});
    const Entry* entry = _entryAt(way.first());
    if (!entry || !entry->action->isVisible())
        return;
    if (way.size() == 1 || !entry->submenu || !entry->action->isEnabled()) {
        _highlight(entry->action);
        return;
    }
    entry->submenu->_wanted = way.sliced(1);
    setActiveAction(entry->action);
}

const QMenuView::Entry* QMenuView::_entryAt(const Place& place) const
{
    std::shared_ptr<MenuItem> item = _shownItems.value(place.index);
    if (!item || drawnTitle(*item) != place.title) {
        const auto same = std::find_if(_shownItems.cbegin(), _shownItems.cend(), [&](const auto& candidate) {
            return drawnTitle(*candidate) == place.title;
        });
        item = same == _shownItems.cend() ? nullptr : *same;
    }
    const auto found = std::find_if(_entries.cbegin(), _entries.cend(),
                                    [&](const Entry& entry) { return entry.item == item; });
    return found == _entries.cend() ? nullptr : &*found;
}

QMenuView& QMenuView::_outermost()
{
    auto* around = qobject_cast<QMenuView*>(parentWidget());
    return around ? around->_outermost() : *this;
}

QList<std::shared_ptr<Menu>> QMenuView::_openSubmenus() const
{
    for (const Entry& entry : _entries)
        if (entry.submenu && entry.submenu->_open)
            return QList<std::shared_ptr<Menu>>{entry.submenu->_menu} + entry.submenu->_openSubmenus();
    return {};
}

const QMenuView::Entry* QMenuView::_entryOf(const QAction* action) const
{
    const auto found = std::find_if(_entries.cbegin(), _entries.cend(),
                                    [&](const Entry& entry) { return entry.action == action; });
    return found == _entries.cend() ? nullptr : &*found;
}

} // namespace tarnwick

#include "moc_QMenuView.cpp"
