// SPDX-License-Identifier: MIT
#include "platform/qt/menu/QMenuView.h"

#include "menu/AlternateFolding.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/qt/menu/MenuStyle.h"
#include "platform/qt/menu/MenuTitle.h"
#include "platform/qt/menu/OpenPopUps.h"
#include "platform/qt/menu/PopUpGeometry.h"

#include <QAction>
#include <QApplication>
#include <QEnterEvent>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>

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
    _fill();
    popup(popUpPosition(corner, sizeHint(), screenGeometryAt(corner)));
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
    _letterSearch.forget();
    if (MenuDelegate* delegate = _menu->delegate())
        delegate->menuDidClose(*_menu);
}

void QMenuView::_showAlternates()
{
    const bool anyAlternate = std::any_of(_entries.cbegin(), _entries.cend(),
                                          [](const Entry& entry) { return entry.item->isAlternate(); });
    // A menu that was rebuilt behind the one on the screen says nothing about it.
    if (!anyAlternate || _menu->itemArray() != _shownItems)
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
    if (_moveToLetter(*event))
        return;
    QMenu::keyPressEvent(event);
    // From the top to the last entry the toolkit moves the highlight without scrolling.
    QAction* active = activeAction();
    if (active && isVisible() && !rect().contains(actionGeometry(active)))
        _highlight(active);
}

void QMenuView::enterEvent(QEnterEvent* event)
{
    QMenu::enterEvent(event);
    _toldOfMotions = false;
    // There may be no other motion than the one that led here.
    if (_pointer && _pointer->enter(event->globalPosition().toPoint()))
        _tellOfMotions(*event);
}

void QMenuView::mouseMoveEvent(QMouseEvent* event)
{
    if (_pointerHasMoved(*event))
        QMenu::mouseMoveEvent(event);
}

void QMenuView::mousePressEvent(QMouseEvent* event)
{
    if (_pointerHasMoved(*event))
        QMenu::mousePressEvent(event);
    else
        closeAllPopUps();
}

void QMenuView::mouseReleaseEvent(QMouseEvent* event)
{
    if (_pointerHasMoved(*event))
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

const QMenuView::Entry* QMenuView::_entryOf(const QAction* action) const
{
    const auto found = std::find_if(_entries.cbegin(), _entries.cend(),
                                    [&](const Entry& entry) { return entry.action == action; });
    return found == _entries.cend() ? nullptr : &*found;
}

} // namespace tarnwick

#include "moc_QMenuView.cpp"
