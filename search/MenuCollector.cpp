// SPDX-License-Identifier: MIT
#include "search/MenuCollector.h"

#include "foundation/Clock.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "menu/ProxyMenuItem.h"

#include <utility>

namespace tarnwick {

namespace {

/// A heading cannot be chosen, whatever happens: it has neither a menu nor anything to do.
bool canBeFound(const MenuItem& item, const QString& title)
{
    if (item.isSeparatorItem() || title.trimmed().isEmpty())
        return false;
    return item.hasSubmenu() || (item.target() && !item.action().isEmpty());
}

/// Of a menu that does not exist yet, one greyed entry says so, which nobody can press.
bool isMadeLater(const Menu& menu)
{
    if (menu.numberOfItems() != 1)
        return menu.numberOfItems() == 0;
    const auto item = menu.itemArray().constFirst();
    const auto* pressed = dynamic_cast<const ProxyMenuItem*>(item->target().get());
    return !item->isEnabled() && !item->hasSubmenu() && pressed && !pressed->canBePressed();
}

} // namespace

MenuCollector::MenuCollector(const std::shared_ptr<Menu>& root, const QList<std::shared_ptr<Menu>>& open,
                             ShownTitle shownTitle)
    : _root(root), _openMenus(open), _shownTitle(std::move(shownTitle)), _open({{root, -1, {}}})
{
}

MenuCollector::~MenuCollector() = default;

std::optional<CollectedMenu> MenuCollector::step()
{
    if (_reading)
        return std::nullopt;
    const bool isOpen = isNextOpen();
    const auto pending = _takeNext();
    if (!pending || (!isOpen && !_read(*pending)))
        return std::nullopt;
    if (isOpen && pending->menu != _root && isMadeLater(*pending->menu))
        _unsearched.append({pending->path, UnsearchedMenu::Reason::Empty});
    return _collect(*pending, isOpen);
}

void MenuCollector::cancel()
{
    _cancelled = true;
    _open.clear();
    _unread.clear();
    if (_reading)
        _filled.removeLast();
    for (const auto& menu : std::exchange(_filled, {}))
        menu->removeAllItems();
}

std::optional<MenuCollector::Pending> MenuCollector::_takeNext()
{
    if (!_open.isEmpty())
        return _open.takeFirst();
    // What is rebuilt meanwhile leaves its old menus with a delegate that may be gone.
    while (!_unread.isEmpty() && !_isAttached(*_unread.first().menu))
        _unread.removeFirst();
    if (_unread.isEmpty())
        return std::nullopt;
    if (_spent + TimeForMenu > TimeInAll) {
        _leaveOut(UnsearchedMenu::Reason::OutOfTime);
        return std::nullopt;
    }
    return _unread.takeFirst();
}

bool MenuCollector::_isAttached(const Menu& menu) const
{
    const Menu* around = &menu;
    while (around && around != _root.get())
        around = around->supermenu();
    return around != nullptr;
}

bool MenuCollector::_read(const Pending& pending)
{
    _reading = true;
    _filled.append(pending.menu);
    const bool wasEmpty = pending.menu->numberOfItems() == 0;
    const double begin = Clock::shared().now();
    if (MenuDelegate* delegate = pending.menu->delegate())
        delegate->menuNeedsUpdate(*pending.menu);
    pending.menu->update();
    const double needed = Clock::shared().now() - begin;
    _reading = false;
    if (_cancelled)
        return false;
    if (!wasEmpty)
        _filled.removeLast();
    _spent += needed;
    _wasSlow = needed >= TimeForMenu;
    if (_wasSlow)
        _unsearched.append({pending.path, UnsearchedMenu::Reason::Slow});
    else if (isMadeLater(*pending.menu))
        _unsearched.append({pending.path, UnsearchedMenu::Reason::Empty});
    return true;
}

CollectedMenu MenuCollector::_collect(const Pending& pending, bool wasOpen)
{
    CollectedMenu collected{pending.holder, pending.path, {}};
    QList<Pending> below;
    const auto items =
        isMadeLater(*pending.menu) ? QList<std::shared_ptr<MenuItem>>() : pending.menu->itemArray();
    for (const auto& item : items) {
        const QString title = _shownTitle(*item);
        if (!canBeFound(*item, title))
            continue;
        if (_entries == MostEntries) {
            _unsearched.append({pending.path, UnsearchedMenu::Reason::TooMuch});
            break;
        }
        collected.entries.append({item, title, item->isEnabled(), 0, pending.menu});
        if (item->hasSubmenu() && item->isEnabled())
            below.append({item->submenu(), _entries, pending.path + QStringList(title)});
        ++_entries;
    }
    _await(below, wasOpen);
    return collected;
}

void MenuCollector::_await(const QList<Pending>& menus, bool holderWasOpen)
{
    QList<Pending> unread;
    for (const Pending& pending : menus) {
        if (pending.path.size() > DeepestMenu)
            _unsearched.append({pending.path, UnsearchedMenu::Reason::TooMuch});
        else if (holderWasOpen && _openMenus.contains(pending.menu))
            _open.append(pending);
        else
            unread.append(pending);
    }
    _unread = holderWasOpen ? unread + _unread : _unread + unread;
}

void MenuCollector::_leaveOut(UnsearchedMenu::Reason reason)
{
    for (const Pending& pending : std::exchange(_unread, {}))
        _unsearched.append({pending.path, reason});
}

} // namespace tarnwick
