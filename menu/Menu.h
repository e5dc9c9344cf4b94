// SPDX-License-Identifier: MIT
#pragma once

#include "menu/MenuItem.h"

#include <QFont>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

class MenuDelegate;

/// A model of the native menu: items, submenus, a delegate and a font; a MenuPresenter shows it. Indices are
/// signed, and one outside the menu finds nothing and changes nothing. GUI thread only.
class Menu : public std::enable_shared_from_this<Menu>
{
public:
    /// Automatic enabling is on.
    [[nodiscard]] static std::shared_ptr<Menu> create(const QString& title);
    ~Menu();
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;

    [[nodiscard]] const QString& title() const { return _title; }
    void setTitle(const QString& title) { _title = title; }

    /// Not owned.
    [[nodiscard]] MenuDelegate* delegate() const { return _delegate; }
    void setDelegate(MenuDelegate* delegate) { _delegate = delegate; }

    [[nodiscard]] bool autoenablesItems() const { return _autoenablesItems; }
    void setAutoenablesItems(bool autoenables) { _autoenablesItems = autoenables; }
    /// With automatic enabling on: enables each item whose target responds to its action and disables the
    /// others; leaves items with a submenu as they are. The presenter calls it before the menu opens.
    void update();

    /// The font set here, else that of the nearest supermenu that has one, else nothing: the default menu
    /// font.
    [[nodiscard]] std::optional<QFont> font() const;
    void setFont(const QFont& font) { _font = font; }

    /// The menu that this one is a submenu in, null when attached to none. Not owned.
    [[nodiscard]] Menu* supermenu() const { return _supermenu; }

    [[nodiscard]] const QList<std::shared_ptr<MenuItem>>& itemArray() const { return _items; }
    [[nodiscard]] int numberOfItems() const { return static_cast<int>(_items.size()); }
    [[nodiscard]] std::shared_ptr<MenuItem> itemAtIndex(int index) const;
    /// The first item with exactly this title, separators (title "") included.
    [[nodiscard]] std::shared_ptr<MenuItem> itemWithTitle(const QString& title) const;
    /// −1 when the item, or no item with this submenu, is here.
    [[nodiscard]] int indexOfItem(const MenuItem* item) const;
    [[nodiscard]] int indexOfItemWithSubmenu(const Menu* submenu) const;

    /// An item that is in some menu already, or whose submenu holds this menu, is not added.
    void addItem(std::shared_ptr<MenuItem> item);
    void insertItemAtIndex(std::shared_ptr<MenuItem> item, int index);
    /// Removing an item clears its submenu's supermenu; the item keeps the submenu.
    void removeItem(const std::shared_ptr<MenuItem>& item);
    void removeItemAtIndex(int index);
    void removeAllItems();

private:
    friend class MenuItem;
    explicit Menu(const QString& title);
    static void _detach(MenuItem& item);
    /// Takes this menu away from any other item that has it as its submenu.
    void _attachTo(Menu& supermenu, const MenuItem& holder);
    /// Whether this is `outer` or a menu below it.
    [[nodiscard]] bool _isInside(const Menu& outer) const;

    QString _title;
    MenuDelegate* _delegate = nullptr;
    bool _autoenablesItems = true;
    std::optional<QFont> _font;
    Menu* _supermenu = nullptr;
    QList<std::shared_ptr<MenuItem>> _items;
};

} // namespace tarnwick
