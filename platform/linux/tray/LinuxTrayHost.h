// SPDX-License-Identifier: MIT
#pragma once

#include "platform/qt/tray/TrayHost.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <xcb/xcb.h>

#include <cstdint>
#include <optional>

namespace tarnwick {

/// Looks for both kinds of tray: a StatusNotifier host on the session bus, which goes first, and the owner of
/// the X11 tray selection. Both may come and go at any time; a host is kept while it is there.
class LinuxTrayHost final : public TrayHost, public QAbstractNativeEventFilter
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

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private Q_SLOTS:
    void _askBus();

private:
    void _watchBus();
    void _watchSelection();
    void _decide();
    [[nodiscard]] bool _embeddingHostThere() const;

    QDBusConnection _bus;
    QDBusServiceWatcher _watcher;
    xcb_atom_t _selection = XCB_ATOM_NONE;
    std::uint8_t _selectionEvent = 0;
    /// Whether there is a publishing host; nothing while the bus has not answered yet.
    std::optional<bool> _publishingHostThere;
    std::optional<bool> _toolkitPublishes;
    Kind _kind = Kind::None;
};

} // namespace tarnwick
