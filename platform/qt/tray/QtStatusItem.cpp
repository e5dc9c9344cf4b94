// SPDX-License-Identifier: MIT
#include "platform/qt/tray/QtStatusItem.h"

#include "foundation/Screens.h"
#include "menu/Menu.h"
#include "menu/MenuPresenter.h"
#include "platform/qt/application/Look.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/tray/NamedIcon.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

void perform(const std::shared_ptr<MenuItem>& item)
{
    if (const auto target = item->target())
        target->perform(item->action(), item.get());
}

void addItem(QMenu& menu, const std::shared_ptr<MenuItem>& item)
{
    if (item->isSeparatorItem()) {
        menu.addSeparator();
        return;
    }
    QAction* action = menu.addAction(QString(item->title()).replace(u'&', u"&&"_s));
    action->setEnabled(item->isEnabled());
    action->setCheckable(item->state() == MenuItem::State::On);
    action->setChecked(item->state() == MenuItem::State::On);
    // The desktop may report the choice from inside its own handling of the menu.
    QObject::connect(
        action, &QAction::triggered, &menu, [item] { perform(item); }, Qt::QueuedConnection);
}

QIcon iconOf(const QImage& image)
{
    return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

/// An item without an image has its place all the same.
QIcon emptyIcon()
{
    QPixmap nothing(1, 1);
    nothing.fill(Qt::transparent);
    return nothing;
}

} // namespace

QtStatusItem::QtStatusItem(TrayHost& host, QString symbolicName)
    : _host(host), _symbolicName(std::move(symbolicName)), _icon(emptyIcon())
{
    _publishedMenu.ensurePolished(); // from now on it hears of new colours
    _publishedMenu.installEventFilter(this);
    connect(&_publishedMenu, &QMenu::aboutToShow, this, &QtStatusItem::_fillPublishedMenu);
    connect(&_publishedMenu, &QMenu::aboutToShow, this, [this] { _setHighlighted(true); });
    connect(&_publishedMenu, &QMenu::aboutToHide, this, [this] { _setHighlighted(false); });
    connect(&_host, &TrayHost::changed, this, &QtStatusItem::_show);
    const auto showLate = [this] {
        if (_waitsForMenu)
            _show();
    };
    connect(&MenuTracking::shared(), &MenuTracking::ended, this, showLate, Qt::QueuedConnection);
    _show();
}

QtStatusItem::~QtStatusItem()
{
    _publishedMenu.removeEventFilter(this);
}

void QtStatusItem::setMenu(const std::shared_ptr<Menu>& menu)
{
    _menu = menu;
    _fillPublishedMenu();
}

void QtStatusItem::setImage(const QImage& image)
{
    _icon = image.isNull() ? emptyIcon() : iconOf(image);
    _updateIcon();
}

void QtStatusItem::setAlternateImage(const QImage& image)
{
    _alternateIcon = iconOf(image);
    _updateIcon();
}

void QtStatusItem::remove()
{
    _removed = true;
    _trayIcon.reset();
    _published.reset();
}

void QtStatusItem::_show()
{
    _trayIcon.reset();
    _published.reset();
    _waitsForMenu = false;
    if (_removed || _host.kind() == TrayHost::Kind::None)
        return;
    _published = _host.publish(_publishedMenu, [this] { _popUpMenu(); });
    if (_published) {
        _published->setIcon(_iconNow());
        return;
    }
    // The toolkit closes open menus when it shows the window of an icon.
    _waitsForMenu = MenuTracking::shared().active();
    if (_waitsForMenu)
        return;
    _trayIcon = std::make_unique<QSystemTrayIcon>(_iconNow());
    _trayIcon->setToolTip(QCoreApplication::applicationName());
    // An embedded icon's menu is shown by the presenter, whose grabs leave the focus where it is.
    if (_host.kind() == TrayHost::Kind::Publishing)
        _trayIcon->setContextMenu(&_publishedMenu);
    connect(
        _trayIcon.get(), &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::Context)
                _popUpMenu();
        },
        Qt::QueuedConnection);
    _trayIcon->show();
}

void QtStatusItem::_popUpMenu()
{
    if (!_menu)
        return;
    const QPointer<QtStatusItem> alive(this);
    _setHighlighted(true);
    MenuPresenter::shared().popUpMenuPositioningItem(_menu, nullptr, Screens::shared().mouseLocation());
    if (alive)
        _setHighlighted(false);
}

void QtStatusItem::_fillPublishedMenu()
{
    _publishedMenu.clear();
    if (!_menu)
        return;
    _menu->update();
    for (const auto& item : _menu->itemArray())
        addItem(_publishedMenu, item);
}

void QtStatusItem::_setHighlighted(bool highlighted)
{
    _highlighted = highlighted;
    _updateIcon();
}

void QtStatusItem::_updateIcon()
{
    if (_trayIcon)
        _trayIcon->setIcon(_iconNow());
    if (_published)
        _published->setIcon(_iconNow());
}

QIcon QtStatusItem::_iconNow() const
{
    // What the host draws itself it highlights itself, too.
    const bool drawnByHost = _host.kind() == TrayHost::Kind::Publishing && !_symbolicName.isEmpty();
    const bool highlighted = _highlighted && _highlightMode && !drawnByHost;
    const QIcon& picture = highlighted != isDark(QGuiApplication::palette()) && !_alternateIcon.isNull()
                               ? _alternateIcon
                               : _icon;
    return drawnByHost ? namedIcon(picture, _symbolicName) : picture;
}

bool QtStatusItem::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        _updateIcon();
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwick

#include "moc_QtStatusItem.cpp"
