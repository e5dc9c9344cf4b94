// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchAccessible.h"

#include "menu/MenuItem.h"
#include "platform/qt/menu/QMenuView.h"
#include "platform/qt/menu/SearchField.h"
#include "platform/qt/menu/SearchList.h"
#include "platform/qt/menu/SearchRows.h"
#include "platform/qt/menu/SearchView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QLabel>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const SearchRows* rowsOf(const SearchList& list)
{
    return qobject_cast<const SearchRows*>(list.model());
}

/// The field has no focus that the toolkit knows of: it has it wherever no row is highlighted.
class FieldAccessible final : public QAccessibleWidget,
                              public QAccessibleTextInterface,
                              public QAccessibleEditableTextInterface
{
public:
    explicit FieldAccessible(SearchField& field) : QAccessibleWidget(&field, QAccessible::EditableText) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const auto* list = _field().parentWidget()->findChild<SearchList*>();
        state.editable = true;
        state.selectableText = true;
        state.focusable = true;
        state.focused = _field().isVisible() && !(list && list->currentIndex().isValid());
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? _field().text() : QAccessibleWidget::text(kind);
    }
    void setText(QAccessible::Text kind, const QString& text) override
    {
        if (kind == QAccessible::Value)
            _field().setText(text);
    }

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override
    {
        const bool is = selectionIndex == 0 && _field().hasSelectedText();
        *startOffset = is ? _field().selectionStart() : 0;
        *endOffset = is ? _field().selectionEnd() : 0;
    }
    [[nodiscard]] int selectionCount() const override { return _field().hasSelectedText() ? 1 : 0; }
    void addSelection(int startOffset, int endOffset) override { setSelection(0, startOffset, endOffset); }
    void removeSelection(int selectionIndex) override
    {
        if (selectionIndex == 0)
            _field().deselect();
    }
    void setSelection(int selectionIndex, int startOffset, int endOffset) override
    {
        if (selectionIndex == 0)
            _field().setSelection(startOffset, endOffset - startOffset);
    }
    [[nodiscard]] int cursorPosition() const override { return _field().cursorPosition(); }
    void setCursorPosition(int position) override { _field().setCursorPosition(position); }
    [[nodiscard]] QString text(int startOffset, int endOffset) const override
    {
        return _field().text().mid(startOffset, endOffset - startOffset);
    }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(_field().text().size()); }
    [[nodiscard]] QRect characterRect(int offset) const override
    {
        const QRect place = _field().placeOf(offset);
        return {_field().mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override
    {
        return _field().cursorPositionAt(_field().mapFromGlobal(point));
    }
    void scrollToSubstring(int startIndex, int endIndex) override
    {
        setCursorPosition(endIndex);
        setCursorPosition(startIndex);
    }
    QString attributes(int offset, int* startOffset, int* endOffset) const override
    {
        *startOffset = offset;
        *endOffset = offset;
        return {};
    }

    void deleteText(int startOffset, int endOffset) override { replaceText(startOffset, endOffset, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int startOffset, int endOffset, const QString& text) override
    {
        _field().setText(_field().text().replace(startOffset, endOffset - startOffset, text));
    }

private:
    [[nodiscard]] SearchField& _field() const { return *static_cast<SearchField*>(object()); }
};

/// What was found, wherever it stands in the list now: what it is called never changes.
class RowAccessible final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    /// `number` is the search's.
    RowAccessible(SearchList& list, int number) : _list(&list), _number(number) {}

    [[nodiscard]] int row() const { return _list ? rowsOf(*_list)->rowOf(_number) : -1; }

    [[nodiscard]] bool isValid() const override { return row() >= 0; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override
    {
        return _list ? _list->window()->windowHandle() : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(_list);
    }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const bool isName = kind == QAccessible::Name && isValid();
        return isName ? _index().data(Qt::AccessibleTextRole).toString() : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = _list->visualRect(_index());
        return {_list->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const MenuEntry& entry = rowsOf(*_list)->search().entry(_number);
        const bool isHighlighted = _list->currentIndex() == _index();
        state.selectable = true;
        state.focusable = true;
        state.selected = isHighlighted;
        state.focused = isHighlighted;
        state.disabled = !entry.enabled;
        state.checkable = state.checked = entry.item->state() == MenuItem::State::On;
        state.hasPopup = entry.item->hasSubmenu();
        const QRect seen = _list->viewport()->rect();
        state.offscreen = state.invisible =
            !_list->isVisible() || !seen.intersects(_list->visualRect(_index()));
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction() && isValid())
            Q_EMIT _list->rowClicked(row());
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    [[nodiscard]] QModelIndex _index() const { return _list->model()->index(row(), 0); }

    QPointer<SearchList> _list;
    int _number;
};

class ListAccessible final : public QAccessibleWidget
{
public:
    explicit ListAccessible(SearchList& list) : QAccessibleWidget(&list, QAccessible::List) {}
    ~ListAccessible() override
    {
        for (const QAccessible::Id id : std::as_const(_ids))
            QAccessible::deleteAccessibleInterface(id);
    }
    ListAccessible(const ListAccessible&) = delete;
    ListAccessible& operator=(const ListAccessible&) = delete;

    [[nodiscard]] int childCount() const override { return _list().model()->rowCount(); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        const SearchRows* rows = rowsOf(_list());
        if (index < 0 || index >= rows->rowCount())
            return nullptr;
        const int number = rows->numberAt(rows->index(index, 0));
        QAccessible::Id& id = _ids[number];
        if (id == 0)
            id = QAccessible::registerAccessibleInterface(new RowAccessible(_list(), number));
        return QAccessible::accessibleInterface(id);
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* row = dynamic_cast<const RowAccessible*>(child);
        return row ? row->row() : -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(_list().indexAt(_list().viewport()->mapFromGlobal(QPoint(x, y))).row());
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return child(_list().currentIndex().row());
    }

private:
    [[nodiscard]] SearchList& _list() const { return *static_cast<SearchList*>(object()); }

    mutable QHash<int, QAccessible::Id> _ids; ///< of rows that were asked for, by number
};

QAccessibleInterface* searchAccessible(const QString& className, QObject* object)
{
    if (className == QLatin1StringView(QMenuView::staticMetaObject.className())) {
        auto* menu = static_cast<QMenuView*>(object);
        if (!menu->isSearched())
            return nullptr; // the toolkit's
        return new QAccessibleWidget(menu, QAccessible::PopupMenu, SearchView::tr("Search the menus"));
    }
    if (className == QLatin1StringView(SearchField::staticMetaObject.className()))
        return new FieldAccessible(*static_cast<SearchField*>(object));
    if (className == QLatin1StringView(SearchList::staticMetaObject.className()))
        return new ListAccessible(*static_cast<SearchList*>(object));
    // What it says changes while something else has the focus.
    if (auto* label = qobject_cast<QLabel*>(object); label && qobject_cast<SearchView*>(label->parent()))
        return new QAccessibleWidget(label, QAccessible::Notification);
    return nullptr;
}

void tell(QWidget& object, QAccessible::Event what)
{
    QAccessibleEvent event(&object, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void makeSearchAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(&searchAccessible);
        return true;
    }();
    static_cast<void>(installed);
}

void beAnotherAccessible(QWidget& object, bool stays)
{
    // Also where the toolkit is about to tell it: that would be of another one.
    tell(object, QAccessible::ObjectHide);
    if (QAccessibleInterface* known = QAccessible::queryAccessibleInterface(&object))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
    if (stays)
        tell(object, QAccessible::ObjectShow);
}

} // namespace tarnwick
