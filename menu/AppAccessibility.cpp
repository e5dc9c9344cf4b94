// SPDX-License-Identifier: MIT
#include "menu/AppAccessibility.h"

#include "ax/Accessibility.h"
#include "ax/UIElementUtilities.h"
#include "foundation/Fonts.h"
#include "foundation/Workspace.h"
#include "menu/GlyphLookUpTable.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuPresenter.h"
#include "menu/ModifierLookUpTable.h"
#include "menu/ProxyMenuItem.h"

#include <QCoreApplication>

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString AppleMenuTitle = u"Apple"_s;
const QString RecentSelectionsTitle = u"Recent Selections"_s;
const QString MenuRole = u"AXMenu"_s;
const QString MenuItemRole = u"AXMenuItem"_s;
const QString TextFieldRole = u"AXTextField"_s;
constexpr QChar LogoCharacter(0xF8FF);

// How deep items of one menu may hold each other. No toolkit nests them at all; a broken tree must not end
// the program.
constexpr qsizetype DeepestItem = 64;

std::optional<QString> describe(const UIElementRef& element)
{
    return UIElementUtilities::descriptionOfValueBeingVerbose(element, false);
}

std::optional<QString> describe(const QVariant& value)
{
    return UIElementUtilities::descriptionOfValueBeingVerbose(value, false);
}

QVariant read(const QString& attribute, const UIElementRef& element)
{
    return UIElementUtilities::valueOfAttributeOfUIElement(attribute, element);
}

bool isTrue(const QVariant& value)
{
    return value.typeId() == QMetaType::Bool && value.toBool();
}

QVariantMap descriptor(const QString& type, const QVariant& item = u"Nothing"_s)
{
    return {{u"Type"_s, type}, {u"MenuItem"_s, item}};
}

} // namespace

/// A menu that is being filled: items are appended to it and none is taken away meanwhile.
struct AppAccessibility::Filling
{
    explicit Filling(Menu& filled) : menu(filled) {}

    Menu& menu;
    QList<UIElementRef> path; ///< the elements whose children are being added, outermost first

    /// Like Menu::itemWithTitle(), but looks at each item only once, however often it is called.
    [[nodiscard]] std::shared_ptr<MenuItem> itemWithTitle(const QString& title)
    {
        for (; _known < menu.numberOfItems(); ++_known) {
            const auto& item = menu.itemArray().at(_known);
            if (!_firstItems.contains(item->title()))
                _firstItems.insert(item->title(), item);
        }
        return _firstItems.value(title);
    }

private:
    QHash<QString, std::shared_ptr<MenuItem>> _firstItems;
    int _known = 0;
};

AppAccessibility::AppAccessibility() = default;

AppAccessibility::~AppAccessibility()
{
    // Menus can be held by others for longer.
    if (_menu)
        _leaveMenu(*_menu);
}

std::unique_ptr<AppAccessibility> AppAccessibility::initWithFocusedApp()
{
    std::unique_ptr<AppAccessibility> mirror(new AppAccessibility);
    mirror->_systemAXUIElementRef = Accessibility::shared().createSystemWide();
    if (!mirror->_systemAXUIElementRef)
        return nullptr;
    mirror->_appAXUIElementRef = mirror->elementOfAppWithFocus();
    if (!mirror->_appAXUIElementRef)
        return nullptr;
    mirror->_menu = Menu::create(u"Fennrick"_s);
    mirror->initializeModifierLookUpTable();
    mirror->initializeGlyphLookUpTable();
    mirror->_menu->setDelegate(mirror.get());
    mirror->registerForNotifications();
    mirror->_showApplicationMenu = true;
    return mirror;
}

void AppAccessibility::update()
{
    Accessibility::shared().beginReading();
    _currentAppName = focusedAppName();
    updateRootMenu();
}

void AppAccessibility::setAuxiliaryMenu(std::shared_ptr<Menu> menu)
{
    _auxiliaryMenu = std::move(menu);
}

// The three reads below are direct: they do not ask for the element's attribute names first.

UIElementRef AppAccessibility::elementOfAppWithFocus() const
{
    const auto value =
        Accessibility::shared().copyAttributeValue(_systemAXUIElementRef, u"AXFocusedApplication"_s);
    return value ? value->value<UIElementRef>() : UIElementRef();
}

UIElementRef AppAccessibility::getAXMenuBarFor(const UIElementRef& application) const
{
    if (!application)
        return {};
    const auto value = Accessibility::shared().copyAttributeValue(application, u"AXMenuBar"_s);
    return value ? value->value<UIElementRef>() : UIElementRef();
}

std::optional<QList<UIElementRef>> AppAccessibility::menuItemsIn(const UIElementRef& element) const
{
    if (!element)
        return std::nullopt;
    const auto value = Accessibility::shared().copyAttributeValue(element, AXChildrenAttribute);
    if (!value || value->typeId() != QMetaType::QVariantList)
        return std::nullopt;
    const QVariantList children = value->toList();
    QList<UIElementRef> elements;
    elements.reserve(children.size());
    for (const QVariant& child : children)
        elements.append(child.value<UIElementRef>());
    return elements;
}

UIElementRef AppAccessibility::getAXElementOfOurProcess() const
{
    return Accessibility::shared().createApplication(QCoreApplication::applicationPid());
}

void AppAccessibility::updateRootMenu()
{
    _menu->removeAllItems();
    _appDescription.reset();
    _appAXUIElementRef = elementOfAppWithFocus();
    if (!_appAXUIElementRef)
        return;
    _menuAXUIElementRef = getAXMenuBarFor(_appAXUIElementRef);
    if (!_menuAXUIElementRef)
        return;
    processAXMenuAsNSMenuWithParentMenuAndPrevDesc(_menuAXUIElementRef, *_menu, std::nullopt);
    if (!_showApplicationMenu) {
        const auto items = _menu->itemArray();
        for (const auto& item : items) {
            if (item->title() != AppleMenuTitle)
                _menu->removeItem(item);
        }
    }
    const auto appleItem = _menu->itemWithTitle(AppleMenuTitle);
    if (!appleItem)
        return;
    if (_showAppleMenu)
        appleItem->setTitle(QString(LogoCharacter));
    else
        _menu->removeItem(appleItem);
}

void AppAccessibility::processAXMenuAsNSMenuWithParentMenuAndPrevDesc(
    const UIElementRef& element, Menu& menu, const std::optional<QString>& previousTitle)
{
    Filling filling(menu);
    _addChildren(filling, element, previousTitle);
}

void AppAccessibility::_addChildren(Filling& filling, const UIElementRef& element,
                                    const std::optional<QString>& previousTitle)
{
    if (filling.path.size() >= DeepestItem || filling.path.contains(element))
        return;
    const auto children = menuItemsIn(element);
    if (!children)
        return;
    filling.path.append(element);
    for (const UIElementRef& child : *children) {
        const QVariantMap found = getMenuItemForElement(child);
        const QString type = found.value(u"Type"_s).toString();
        if (type == MenuItemRole) {
            const auto item = found.value(u"MenuItem"_s).value<std::shared_ptr<MenuItem>>();
            filling.menu.addItem(item);
            _addChildren(filling, child, item->title());
        } else if (type == MenuRole) {
            _attachSubmenu(filling, previousTitle);
        }
    }
    filling.path.removeLast();
}

void AppAccessibility::_attachSubmenu(Filling& filling, const std::optional<QString>& previousTitle)
{
    const auto submenu = Menu::create(u"Sub Menu for: "_s + previousTitle.value_or(u"(null)"_s));
    submenu->setDelegate(this);
    submenu->setAutoenablesItems(false);
    // Looked up by title: of two items with one title the first gets both submenus, the later one stays.
    if (const auto item = previousTitle ? filling.itemWithTitle(*previousTitle) : nullptr) {
        item->setAction({});
        item->setSubmenu(submenu);
    }
}

void AppAccessibility::processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc(
    const UIElementRef& element, Menu& menu, const std::optional<QString>& /*unused*/)
{
    const auto children = menuItemsIn(element);
    if (!children)
        return;
    for (const UIElementRef& child : *children) {
        if (UIElementUtilities::roleOfUIElement(child).toString() == MenuRole)
            processAXMenuAsNSMenuWithParentMenuAndPrevDesc(child, menu, std::nullopt);
    }
}

QVariantMap AppAccessibility::getMenuItemForElement(const UIElementRef& element)
{
    const std::optional<QString> description = describe(element);
    if (!description || *description == MenuItemRole || *description == TextFieldRole)
        return descriptor(u"AXOther"_s);
    if (*description == MenuRole)
        return descriptor(MenuRole);

    const QVariant enabled = read(u"AXEnabled"_s, element);
    const QVariant mark = read(u"AXMenuItemMarkChar"_s, element);
    const QVariant modifiers = read(u"AXMenuItemCmdModifiers"_s, element);
    const QVariant character = read(u"AXMenuItemCmdChar"_s, element);
    const QVariant primary = read(u"AXMenuItemPrimaryUIElement"_s, element);
    const QVariant glyph = read(u"AXMenuItemCmdGlyph"_s, element);

    if (description->isEmpty() || *description == u"-")
        return descriptor(MenuItemRole, QVariant::fromValue(MenuItem::separatorItem()));

    const auto item = MenuItem::create(*description);
    item->setState(mark.isValid() ? MenuItem::State::On : MenuItem::State::Off);
    item->setEnabled(isTrue(enabled));
    if (_keyEquivalents)
        _setKeyEquivalent(*item, character, glyph);
    if (const auto mask = _modifierLookupTable.constFind(describe(modifiers).value_or(QString()));
        mask != _modifierLookupTable.cend())
        item->setKeyEquivalentModifierMask(*mask);
    if (_foldAlternateItems && primary.isValid() && describe(primary) != description)
        item->setAlternate(true);
    item->setTarget(createActionNodeWithAndMenuItem(element, item));
    item->setAction(ProxyMenuItem::clickMenuItemAction());
    return descriptor(MenuItemRole, QVariant::fromValue(item));
}

void AppAccessibility::_setKeyEquivalent(MenuItem& item, const QVariant& character,
                                         const QVariant& glyph) const
{
    if (character.isValid())
        item.setKeyEquivalent(character.toString().toLower());
    if (const auto key = _glyphLookupTable.constFind(describe(glyph).value_or(QString()));
        key != _glyphLookupTable.cend())
        item.setKeyEquivalent(*key);
}

std::shared_ptr<ProxyMenuItem>
AppAccessibility::createActionNodeWithAndMenuItem(const UIElementRef& element,
                                                  const std::shared_ptr<MenuItem>& item)
{
    // One read for all items of an application: it does not change its name between two of them.
    if (!_appDescription)
        _appDescription = describe(_appAXUIElementRef);
    auto proxy = std::make_shared<ProxyMenuItem>();
    proxy->setItemAXUIElementRef(element);
    proxy->setAppAXUIElementRef(_appAXUIElementRef);
    proxy->setMenuItem(item);
    proxy->setAppName(_appDescription);
    return proxy;
}

void AppAccessibility::initializeModifierLookUpTable()
{
    if (_modifierLookupTable.isEmpty())
        _modifierLookupTable = modifierLookUpTable();
}

void AppAccessibility::initializeGlyphLookUpTable()
{
    if (_glyphLookupTable.isEmpty())
        _glyphLookupTable = glyphLookUpTable();
}

void AppAccessibility::registerForNotifications()
{
    _menuSelectionObserver = NotificationCenter::defaultCenter().addObserver(
        QString::fromUtf16(MenuDidSendActionNotificationName), nullptr,
        [this](const Notification& notification) { handleMenuSelection(notification); });
}

void AppAccessibility::handleMenuSelection(const Notification& /*notification*/) {}

void AppAccessibility::menuNeedsUpdate(Menu& menu)
{
    if (menu.title().constData() != reservedMarkerTitle().constData()) {
        if (&menu == _menu.get())
            _finishRootMenu();
        else
            _fillSubmenu(menu);
    }
    const auto name = focusedAppName();
    if (name == u"Finder"_s || name == u"Safari"_s)
        removeDuplicateMenuItems(menu);
}

void AppAccessibility::_finishRootMenu()
{
    if (!_showAppleMenu)
        _menu->removeItem(_menu->itemWithTitle(AppleMenuTitle));
    appendAuxiliaryMenuTo(*_menu);
}

void AppAccessibility::_fillSubmenu(Menu& menu)
{
    const Menu* supermenu = menu.supermenu();
    const auto holder =
        supermenu ? supermenu->itemAtIndex(supermenu->indexOfItemWithSubmenu(&menu)) : nullptr;
    menu.removeAllItems();
    const auto proxy = holder ? std::dynamic_pointer_cast<ProxyMenuItem>(holder->target()) : nullptr;
    if (proxy)
        processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc(proxy->itemAXUIElementRef(), menu, std::nullopt);
}

void AppAccessibility::menuWillHighlightItem(Menu& /*menu*/, MenuItem* /*item*/) {}

void AppAccessibility::menuWillOpen(Menu& /*menu*/) {}

void AppAccessibility::menuDidClose(Menu& /*menu*/) {}

// True without a target: shortcuts are shown, and work in the application only.
bool AppAccessibility::menuHasKeyEquivalentForEventTargetAction(Menu& /*menu*/, const Event& /*event*/,
                                                                ActionTarget*& /*target*/,
                                                                QString& /*action*/)
{
    return true;
}

const QString& AppAccessibility::reservedMarkerTitle()
{
    static const QString marker = u"Tarnwick reserved menu"_s;
    return marker;
}

void AppAccessibility::appendAuxiliaryMenuTo(Menu& menu)
{
    if (!_auxiliaryMenu)
        return;
    if (Menu* holder = _auxiliaryMenu->supermenu()) {
        // Not by its title: our own menu bar, when we are in front, has a menu of the same name.
        holder->removeItemAtIndex(holder->indexOfItemWithSubmenu(_auxiliaryMenu.get()));
        // The separator that was inserted with it. This takes for granted that the holder is this menu.
        menu.removeItemAtIndex(menu.numberOfItems() - 1);
    }
    const auto item = MenuItem::create(_auxiliaryMenu->title());
    item->setSubmenu(_auxiliaryMenu);
    menu.addItem(item);
    menu.insertItemAtIndex(MenuItem::separatorItem(), menu.indexOfItem(item.get()));
}

void AppAccessibility::removeDuplicateMenuItems(Menu& menu)
{
    qint32 count = menu.numberOfItems();
    qint32 index = 1;
    while (count >= 0 && index != count) {
        const auto item = menu.itemAtIndex(index);
        if (!item)
            return;
        // Index −1, which a removal at index 1 steps back to, holds nothing to be equal to.
        const auto previous = menu.itemAtIndex(index - 1);
        if (previous && item->title() == previous->title()) {
            menu.removeItemAtIndex(index);
            count = menu.numberOfItems();
            --index;
        } else {
            ++index;
        }
    }
}

void AppAccessibility::updateRecentSelectionsListWithItem(const std::shared_ptr<MenuItem>& /*item*/) {}

void AppAccessibility::addRecentSelectionsMenuTo(Menu& menu)
{
    const auto header = MenuItem::create(RecentSelectionsTitle);
    header->setAttributedTitle(
        AttributedTitle{RecentSelectionsTitle, Fonts::shared().menuFontOfSize(0), -1.0});
    menu.addItem(MenuItem::separatorItem());
    menu.addItem(header);
    const std::optional<QString> application = describe(_appAXUIElementRef);
    for (const QString& key : std::as_const(_recentSelectionsList)) {
        const QStringList parts = key.split(u'|');
        if (parts.first() != application)
            continue;
        if (const auto item = _itemOnPath(parts.mid(1)))
            menu.addItem(item->copy());
    }
}

std::shared_ptr<MenuItem> AppAccessibility::_itemOnPath(const QStringList& titles)
{
    const auto topItem = titles.isEmpty() ? nullptr : _menu->itemWithTitle(titles.first());
    std::shared_ptr<Menu> current = topItem ? topItem->submenu() : nullptr;
    std::shared_ptr<MenuItem> found;
    for (const QString& title : titles.mid(1)) {
        if (!current)
            return nullptr;
        menuNeedsUpdate(*current);
        found = current->itemWithTitle(title);
        if (found && found->hasSubmenu())
            current = found->submenu();
    }
    return found;
}

void AppAccessibility::_leaveMenu(Menu& menu)
{
    if (menu.delegate() == this)
        menu.setDelegate(nullptr);
    for (const auto& item : menu.itemArray()) {
        if (item->hasSubmenu())
            _leaveMenu(*item->submenu());
    }
}

} // namespace tarnwick
