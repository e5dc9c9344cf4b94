// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"
#include "platform/qt/tray/TrayHost.h"

#include <QList>
#include <QString>

#include <memory>

namespace tarnwick {

class QtStatusItem;

/// The tray. While there is no host, items wait for one.
class QtStatusBar final : public StatusBar
{
public:
    /// `symbolicName` is that of its items' icon in the desktop's theme, for hosts that draw it in the
    /// colours of their panel; empty when the theme has none.
    explicit QtStatusBar(std::unique_ptr<TrayHost> host, QString symbolicName = {});
    ~QtStatusBar() override;

    [[nodiscard]] std::shared_ptr<StatusItem> statusItemWithLength(double length) override;
    void removeStatusItem(const std::shared_ptr<StatusItem>& item) override;

private:
    std::unique_ptr<TrayHost> _host;
    QString _symbolicName;
    QList<std::weak_ptr<QtStatusItem>> _items; ///< an item that nobody has any more is gone
};

} // namespace tarnwick
