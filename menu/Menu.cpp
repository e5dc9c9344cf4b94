// SPDX-License-Identifier: MIT
#include "menu/Menu.h"

#include <algorithm>
#include <utility>

namespace tarnwick {

Menu::Menu(const QString& title) : _title(title) {}

Menu::~Menu()
{
    removeAllItems();
}

std::shared_ptr<Menu> Menu::create(const QString& title)
{
    return std::shared_ptr<Menu>(new Menu(title));
}

void Menu::update()
{
    if (!_autoenablesItems)
        return;
    for (const auto& item : _items) {
        if (!item->hasSubmenu())
            item->setEnabled(item->target() && item->target()->respondsTo(item->action()));
    }
}

std::optional<QFont> Menu::font() const
{
    const Menu* menu = this;
    while (menu && !menu->_font)
        menu = menu->_supermenu;
    return menu ? menu->_font : std::nullopt;
}

std::shared_ptr<MenuItem> Menu::itemAtIndex(int index) const
{
    return index >= 0 && index < numberOfItems() ? _items.at(index) : nullptr;
}

std::shared_ptr<MenuItem> Menu::itemWithTitle(const QString& title) const
{
    const auto found = std::find_if(_items.cbegin(), _items.cend(),
                                    [&title](const auto& item) { return item->title() == title; });
    return found == _items.cend() ? nullptr : *found;
}

int Menu::indexOfItem(const MenuItem* item) const
{
    const auto found =
        std::find_if(_items.cbegin(), _items.cend(), [item](const auto& held) { return held.get() == item; });
    return found == _items.cend() ? -1 : static_cast<int>(found - _items.cbegin());
}

int Menu::indexOfItemWithSubmenu(const Menu* submenu) const
{
    if (!submenu)
        return -1;
    const auto found = std::find_if(_items.cbegin(), _items.cend(),
                                    [submenu](const auto& item) { return item->submenu().get() == submenu; });
    return found == _items.cend() ? -1 : static_cast<int>(found - _items.cbegin());
}

void Menu::addItem(std::shared_ptr<MenuItem> item)
{
    insertItemAtIndex(std::move(item), numberOfItems());
}

void Menu::insertItemAtIndex(std::shared_ptr<MenuItem> item, int index)
{
    if (!item || item->_menu || index < 0 || index > numberOfItems())
        return;
    if (item->_submenu && _isInside(*item->_submenu))
        return;
    item->_menu = this;
    item->_attachSubmenu();
    _items.insert(index, std::move(item));
}

void Menu::removeItem(const std::shared_ptr<MenuItem>& item)
{
    removeItemAtIndex(indexOfItem(item.get()));
}

void Menu::removeItemAtIndex(int index)
{
    if (index < 0 || index >= numberOfItems())
        return;
    const auto item = _items.takeAt(index);
    _detach(*item);
}

void Menu::removeAllItems()
{
    const auto items = std::exchange(_items, {});
    for (const auto& item : items)
        _detach(*item);
}

void Menu::_detach(MenuItem& item)
{
    item._detachSubmenu();
    item._menu = nullptr;
}

void Menu::_attachTo(Menu& supermenu, const MenuItem& holder)
{
    if (_supermenu) {
        for (const auto& item : std::as_const(_supermenu->_items)) {
            if (item.get() != &holder && item->_submenu.get() == this)
                item->_submenu = nullptr;
        }
    }
    _supermenu = &supermenu;
}

bool Menu::_isInside(const Menu& outer) const
{
    const Menu* menu = this;
    while (menu && menu != &outer)
        menu = menu->_supermenu;
    return menu != nullptr;
}

} // namespace tarnwick
