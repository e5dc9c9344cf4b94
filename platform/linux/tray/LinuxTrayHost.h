// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/x11/X11SelectionOwner.h"
#include "platform/qt/tray/TrayHost.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <optional>

namespace tarnwick {

/// Looks for both kinds of tray: a StatusNotifier host on the session bus, which goes first, and the owner of
/// the X11 tray selection. Both may come and go at any time; a host is kept while it is there.
class LinuxTrayHost final : public TrayHost
{
    Q_OBJECT

public:
    explicit LinuxTrayHost(const QDBusConnection& bus);
    ~LinuxTrayHost() override;

    /// Looks there from now on: the bus has gone, or has come back.
    void setBus(const QDBusConnection& bus);

    [[nodiscard]] Kind kind() const override { return _kind; }

    /// The toolkit publishes its icons for good or never, as it is possible when it makes the first one.
    [[nodiscard]] std::unique_ptr<PublishedIcon> publish(QMenu& menu,
                                                         const std::function<void()>& clicked) override;

private Q_SLOTS:
    void _askBus();

private:
    void _watchBus();
    void _decide();

    QDBusConnection _bus;
    QDBusServiceWatcher _watcher;
    X11SelectionOwner _embeddingHost{"_NET_SYSTEM_TRAY_S0"};
    /// Whether there is a publishing host; nothing while the bus has not answered yet.
    std::optional<bool> _publishingHostThere;
    std::optional<bool> _toolkitPublishes;
    Kind _kind = Kind::None;
};

} // namespace tarnwick
