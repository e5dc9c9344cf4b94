// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/menu/KeyComposition.h"
#include "platform/qt/menu/LetterSearch.h"
#include "platform/qt/menu/PointerTravel.h"

#include <QList>
#include <QMenu>
#include <QString>

#include <functional>
#include <memory>

class QSinglePointEvent;

namespace tarnwick {

class Menu;
class MenuItem;
class SearchView;

/// A Menu as a menu of the toolkit. It is filled just before it opens, each time anew: the delegate is told
/// menuNeedsUpdate, the menu enables its items, the delegate is told menuWillOpen; then menuWillHighlightItem
/// as the highlight moves and menuDidClose at the end. What it shows is a copy that it holds: the model may
/// be changed or dropped while it is open. Choosing performs nothing, it is only told.
///
/// While it is searched a field and what is found stand in its place; its submenus are closed then, and it
/// stays open. The keys are those of the field, which is its focus widget.
class QMenuView final : public QMenu
{
    Q_OBJECT

public:
    /// Without a menu it is not to be opened before setMenu().
    explicit QMenuView(std::shared_ptr<Menu> menu, QWidget* parent = nullptr);
    ~QMenuView() override;

    /// What it shows from the next opening on.
    void setMenu(std::shared_ptr<Menu> menu);
    /// Makes the window, unseen, so that openAt() need not.
    void makeWindow();

    /// Done with the window of this menu, and of each submenu, before it is shown.
    void setWindowPreparation(std::function<void(QWidget&)> prepare);

    /// By which keys type in a search; without it each types its own text.
    void setKeyComposition(KeyComposition compose) { _compose = std::move(compose); }

    /// Where the pointer is as it opens, which the toolkit does not know where it is told of motions only: it
    /// would ignore the first ones, and a click after them.
    void setPointerAtOpening(QPoint place);

    /// Shows it with its top left corner at `corner` (toolkit coordinates), or flipped where it would not fit
    /// on the screen of that point, in a search if that is what a pop-up begins with now. Returns at once.
    void openAt(QPoint corner);

    /// Of the menu that is opened itself, not of a submenu; does nothing where it is searched already.
    void beginSearch();
    [[nodiscard]] bool isSearched() const { return _search != nullptr; }

    /// ModifierFlag bits: of alternates, those are shown whose modifiers are held; in submenus, too.
    void setHeldModifiers(quint64 flags);

    /// Whether the point (toolkit coordinates) lies on this menu or on an open submenu.
    [[nodiscard]] bool coversGlobal(QPoint point) const;

    /// Large enough to be seen also without any entry.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// In this menu or a submenu; `menu` holds, or held, the item.
    void itemChosen(std::shared_ptr<tarnwick::Menu> menu, std::shared_ptr<tarnwick::MenuItem> item);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Where an entry was in its menu.
    struct Place
    {
        int index;
        QString title; ///< as it is drawn
    };

    struct Entry
    {
        QAction* action;
        std::shared_ptr<MenuItem> item;
        QMenuView* submenu; ///< null without one
    };

    void _fill();
    void _addEntry(const std::shared_ptr<MenuItem>& item);
    void _closed();
    void _showAlternates();
    [[nodiscard]] QAction* _shownInPlaceOf(const QAction* hidden) const;
    void _noticeHighlight();
    [[nodiscard]] QMenuView& _outermost();
    [[nodiscard]] QList<std::shared_ptr<Menu>> _openSubmenus() const;
    void _makeSearch();
    void _dropSearch();
    void _leaveSearch();
    void _fitSearch();
    void _choose(int number);
    void _showInMenu(int number);
    /// Opens the menus on the way to what is wanted, one after another: each has to be on the screen before
    /// the next one, which is placed beside it.
    void _goOnToWanted();
    [[nodiscard]] const Entry* _entryAt(const Place& place) const;
    [[nodiscard]] bool _moveToLetter(const QKeyEvent& event);
    void _highlight(QAction* action);
    [[nodiscard]] bool _pointerHasMoved(const QMouseEvent& event);
    void _tellOfMotions(const QSinglePointEvent& event);
    [[nodiscard]] const Entry* _entryOf(const QAction* action) const;

    std::shared_ptr<Menu> _menu;
    QList<std::shared_ptr<MenuItem>> _shownItems; ///< what the menu held when it was filled
    QList<Entry> _entries;
    bool _filled = false;
    bool _open = false;
    const QAction* _highlighted = nullptr;
    quint64 _heldModifiers = 0;
    LetterSearch _letterSearch;
    std::function<void(QWidget&)> _prepareWindow;
    KeyComposition _compose;
    std::shared_ptr<PointerTravel> _pointer; ///< of all menus that are open together; null: the toolkit knows
    bool _toldOfMotions = false;
    QPoint _corner;                ///< where it was to open
    SearchView* _search = nullptr; ///< a child
    QList<Place> _wanted;          ///< the way to an entry that is to be highlighted
};

} // namespace tarnwick
