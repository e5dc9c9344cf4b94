// SPDX-License-Identifier: MIT
#include "platform/qt/tray/QtStatusBar.h"

#include "platform/qt/tray/QtStatusItem.h"

#include <utility>

namespace tarnwick {

QtStatusBar::QtStatusBar(std::unique_ptr<TrayHost> host, QString symbolicName)
    : _host(std::move(host)), _symbolicName(std::move(symbolicName))
{
}

QtStatusBar::~QtStatusBar()
{
    while (!_items.isEmpty())
        removeStatusItem(_items.constLast());
}

std::shared_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/)
{
    _items.append(std::make_shared<QtStatusItem>(*_host, _symbolicName));
    return _items.constLast();
}

void QtStatusBar::removeStatusItem(const std::shared_ptr<StatusItem>& item)
{
    const auto index = _items.indexOf(item);
    if (index >= 0)
        static_cast<QtStatusItem&>(*_items.takeAt(index)).remove();
}

} // namespace tarnwick
