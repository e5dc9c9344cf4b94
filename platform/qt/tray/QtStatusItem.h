// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"
#include "platform/qt/tray/TrayHost.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace tarnwick {

/// One icon in the tray. A click on it opens its menu. A host that knows the icon by its name draws it in the
/// colours of its panel; for all others the image is taken that stands out from the colours of the desktop.
class QtStatusItem final : public QObject, public StatusItem
{
    Q_OBJECT

public:
    /// `host` must outlive it. `symbolicName` may be empty: see QtStatusBar.
    QtStatusItem(TrayHost& host, QString symbolicName);
    ~QtStatusItem() override;

    void setHighlightMode(bool highlight) override { _highlightMode = highlight; }
    void setMenu(const std::shared_ptr<Menu>& menu) override;
    void setImage(const QImage& image) override;
    void setAlternateImage(const QImage& image) override;

    /// The toolkit's icon in the tray; null while there is none.
    [[nodiscard]] QSystemTrayIcon* trayIcon() const { return _trayIcon.get(); }
    /// Takes the icon out of the tray for good.
    void remove();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void _show();
    void _popUpMenu();
    void _fillPublishedMenu();
    void _setHighlighted(bool highlighted);
    void _updateIcon();
    [[nodiscard]] QIcon _iconNow() const;

    TrayHost& _host;
    bool _removed = false;
    bool _highlightMode = false;
    bool _highlighted = false;
    std::shared_ptr<Menu> _menu;
    QString _symbolicName;
    QIcon _icon;
    QIcon _alternateIcon;
    QMenu _publishedMenu;
    std::unique_ptr<QSystemTrayIcon> _trayIcon; ///< null while there is no host, or the next one
    bool _waitsForMenu = false;                 ///< the icon, for the end of the menu that is open
    std::unique_ptr<PublishedIcon> _published;
};

} // namespace tarnwick
