// SPDX-License-Identifier: MIT
#include "menu/ProxyMenuItem.h"

#include "ax/Accessibility.h"
#include "ax/UIElementUtilities.h"
#include "menu/MenuItem.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QString NullText = u"(null)"_s;

} // namespace

const QString& ProxyMenuItem::clickMenuItemAction()
{
    static const QString action = u"clickMenuItem"_s;
    return action;
}

void ProxyMenuItem::clickMenuItem()
{
    UIElementUtilities::performActionOfUIElement(AXPressAction, _itemAXUIElementRef);
}

bool ProxyMenuItem::canBePressed() const
{
    const auto actions = UIElementUtilities::actionNamesOfUIElement(_itemAXUIElementRef);
    return !actions || actions->contains(AXPressAction);
}

QString ProxyMenuItem::createKeyForFennrickItem(const std::shared_ptr<MenuItem>& item) const
{
    if (!item)
        return NullText + _itemKey;
    QString path = item->title();
    if (item->hasSubmenu())
        path += u'|';
    path += _itemKey;
    const auto parent = item->parentItem();
    return parent ? createKeyForFennrickItem(parent) + path : path;
}

QString ProxyMenuItem::itemKey()
{
    _itemKey = _appName.value_or(NullText) + u'|' + createKeyForFennrickItem(_menuItem.lock());
    return _itemKey;
}

bool ProxyMenuItem::respondsTo(const QString& action) const
{
    return action == clickMenuItemAction();
}

void ProxyMenuItem::perform(const QString& action, ActionSender* /*sender*/)
{
    if (respondsTo(action))
        clickMenuItem();
}

} // namespace tarnwick
