// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"
#include "platform/qt/TrayHost.h"

#include <QList>

#include <memory>

namespace tarnwick {

/// The tray. While there is no host, items wait for one.
class QtStatusBar final : public StatusBar
{
public:
    explicit QtStatusBar(std::unique_ptr<TrayHost> host);
    ~QtStatusBar() override;

    [[nodiscard]] std::shared_ptr<StatusItem> statusItemWithLength(double length) override;
    void removeStatusItem(const std::shared_ptr<StatusItem>& item) override;

private:
    std::unique_ptr<TrayHost> _host;
    QList<std::shared_ptr<StatusItem>> _items;
};

} // namespace tarnwick
