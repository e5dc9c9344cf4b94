// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Clock.h"
#include "platform/qt/menu/SearchKeys.h"
#include "search/MenuSearch.h"

#include <QList>
#include <QWidget>

#include <memory>

class QLabel;

namespace tarnwick {

class SearchField;
class SearchList;
class SearchRows;

/// A field and what is found by what is typed in it, in the place of the menu that it is a child of. Menus
/// that are not open are read in the background, one in an event, for as long as it is there. Choosing
/// performs nothing, it is only told. GUI thread only.
class SearchView final : public QWidget
{
    Q_OBJECT

public:
    /// `open`: menus below `root` that are open as it begins.
    SearchView(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open, QWidget& menu);
    ~SearchView() override;

    [[nodiscard]] SearchField& field() { return *_field; }
    [[nodiscard]] const MenuSearch& search() const { return _search; }

    /// Not higher than this, if that leaves a row.
    void setGreatestHeight(int height);
    /// With the rows that there are. Wide enough for most of what menus have, whatever the rows are.
    [[nodiscard]] QSize sizeHint() const override;
    /// With as many rows as it shows at a time.
    [[nodiscard]] int fullHeight() const;

    /// Nothing more is read.
    void end();

Q_SIGNALS:
    /// `number` is the search's.
    void chosen(int number);
    /// The entry is wanted in its own menu.
    void wantedInMenu(int number);
    void left();
    /// sizeHint() has become another one.
    void sizeChanged();

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void _quieten();
    void _typed(const QString& text);
    void _pressed(SearchKey key);
    void _move(int by);
    void _highlight(int row);
    void _choose();
    void _showInMenu();
    void _readOn();
    void _step();
    /// How many there are, and which menus are not among them.
    void _tellState();
    /// The same aloud, to those who hear the screen; once.
    void _announceState();
    [[nodiscard]] QString _stateText() const;
    [[nodiscard]] QString _resultsText() const;
    [[nodiscard]] std::optional<int> _highlighted() const;
    [[nodiscard]] int _heightAround() const;
    [[nodiscard]] int _margin() const;
    void _layOut();

    MenuSearch _search;
    SearchField* _field;
    SearchList* _list;
    SearchRows* _rows;
    QLabel* _state;
    QString _announced;
    std::unique_ptr<Clock::Timer> _timer;
    int _greatestHeight = 0;
};

} // namespace tarnwick
