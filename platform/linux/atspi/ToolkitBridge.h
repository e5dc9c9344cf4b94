// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QPointer>

#include <functional>

namespace tarnwick {

/// What the toolkit publishes to screen readers: our own windows and menus. It does so once, on the bus and
/// to the registry that are there when it starts; on a bus that comes after that one, and to a registry that
/// starts anew, this does it with the toolkit's own objects. GUI thread only.
class ToolkitBridge final : public QObject, private QAccessible::ActivationObserver
{
    Q_OBJECT

public:
    ToolkitBridge();
    ~ToolkitBridge() override;

    /// An accessibility bus has just answered at this address. Does what it has to from the event loop.
    void busAnswered(const QByteArray& address);

    /// Looks out for the toolkit's keeper of the connection, until it has told of one.
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void _lost();

private:
    void accessibilityActiveChanged(bool active) override;
    void _takeUp();
    void _comeBack(const QString& address);
    void _publish();
    void _embedThen(const std::function<void()>& answered);
    void _embed()
    {
        _embedThen([] {});
    }
    void _watch();

    QDBusConnection _connection; ///< the toolkit's; not connected while there is none
    QDBusServiceWatcher _registry;
    QPointer<QObject> _keeper; ///< the toolkit's, of the connection that it sends events on
    QPointer<QDBusVirtualObject> _tree;
    QPointer<QObject> _cache;
    QPointer<QObject> _keys;
};

} // namespace tarnwick
