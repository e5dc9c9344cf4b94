// SPDX-License-Identifier: MIT
#include "menu/MenuItem.h"

#include "menu/Menu.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

MenuItem::MenuItem() = default;
MenuItem::~MenuItem() = default;

std::shared_ptr<MenuItem> MenuItem::create(const QString& title, const QString& action,
                                           const QString& keyEquivalent)
{
    std::shared_ptr<MenuItem> item(new MenuItem);
    item->_title = title;
    item->_action = action;
    item->_keyEquivalent = keyEquivalent;
    return item;
}

std::shared_ptr<MenuItem> MenuItem::separatorItem()
{
    auto item = create(u""_s);
    item->_separator = true;
    item->_enabled = false;
    return item;
}

std::shared_ptr<MenuItem> MenuItem::copy() const
{
    auto item = create(_title, _action, _keyEquivalent);
    item->_attributedTitle = _attributedTitle;
    item->_target = _target;
    item->_keyEquivalentModifierMask = _keyEquivalentModifierMask;
    item->_state = _state;
    item->_enabled = _enabled;
    item->_alternate = _alternate;
    item->_separator = _separator;
    return item;
}

std::shared_ptr<MenuItem> MenuItem::parentItem() const
{
    const Menu* supermenu = _menu ? _menu->supermenu() : nullptr;
    return supermenu ? supermenu->itemAtIndex(supermenu->indexOfItemWithSubmenu(_menu)) : nullptr;
}

void MenuItem::setSubmenu(std::shared_ptr<Menu> submenu)
{
    if (submenu == _submenu)
        return;
    if (submenu && _menu && _menu->_isInside(*submenu))
        return;
    _detachSubmenu();
    _submenu = std::move(submenu);
    _attachSubmenu();
}

void MenuItem::_attachSubmenu()
{
    if (_submenu && _menu)
        _submenu->_attachTo(*_menu, *this);
}

void MenuItem::_detachSubmenu()
{
    if (_submenu && _menu && _submenu->_supermenu == _menu)
        _submenu->_supermenu = nullptr;
}

} // namespace tarnwick
