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
    for (const auto& each : std::as_const(_items))
        if (const auto item = each.lock())
            item->remove();
}

std::shared_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/)
{
    const auto item = std::make_shared<QtStatusItem>(*_host, _symbolicName);
    _items.removeIf([](const auto& each) { return each.expired(); });
    _items.append(item);
    return item;
}

void QtStatusBar::removeStatusItem(const std::shared_ptr<StatusItem>& item)
{
    if (item)
        static_cast<QtStatusItem&>(*item).remove();
}

} // namespace tarnwick
