// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/PublishedMenu.h"
#include "platform/qt/tray/PublishedIcon.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <functional>

namespace tarnwick {

/// A status item that is described to the host on the session bus. The toolkit has such a thing, but decides
/// once for all whether there is such a host: when it makes its first icon.
class StatusNotifierItem final : public QObject, public PublishedIcon
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ title)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(tarnwick::StatusNotifierPictures IconPixmap READ iconPixmap)
    Q_PROPERTY(QString OverlayIconName READ none)
    Q_PROPERTY(tarnwick::StatusNotifierPictures OverlayIconPixmap READ noPictures)
    Q_PROPERTY(QString AttentionIconName READ none)
    Q_PROPERTY(tarnwick::StatusNotifierPictures AttentionIconPixmap READ noPictures)
    Q_PROPERTY(QString AttentionMovieName READ none)
    Q_PROPERTY(tarnwick::StatusNotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)

public:
    /// `menu` must outlive it; `clicked` is called from the event loop.
    StatusNotifierItem(const QDBusConnection& bus, QMenu& menu, std::function<void()> clicked);
    ~StatusNotifierItem() override;

    void setIcon(const QIcon& icon) override;

    [[nodiscard]] static QString category();
    [[nodiscard]] static QString title();
    [[nodiscard]] static QString status();
    [[nodiscard]] static int windowId() { return 0; }
    [[nodiscard]] QString iconName() const { return _icon.name(); }
    [[nodiscard]] StatusNotifierPictures iconPixmap() const;
    [[nodiscard]] static QString none() { return {}; }
    [[nodiscard]] static StatusNotifierPictures noPictures() { return {}; }
    [[nodiscard]] static StatusNotifierToolTip toolTip();
    [[nodiscard]] static bool itemIsMenu() { return false; }
    [[nodiscard]] static QDBusObjectPath menu();

    // The names are the protocol's.
public Q_SLOTS:
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);

Q_SIGNALS:
    void NewIcon();

private:
    void _tellWatcher();

    QDBusConnection _bus;
    QDBusServiceWatcher _watcher; ///< hosts may start anew without having been seen to go
    PublishedMenu _menu;
    std::function<void()> _clicked;
    QIcon _icon;
};

} // namespace tarnwick
