// SPDX-License-Identifier: MIT
#include "prefs/PreferencesWindow.h"

#include "foundation/Workspace.h"
#include "prefs/AboutPane.h"
#include "prefs/GeneralOptionsPane.h"
#include "prefs/HotKeyPane.h"
#include "prefs/PaneIcon.h"
#include "prefs/PreferencesAccessible.h"
#include "prefs/PreferencesToolbar.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeySequence>
#include <QLayout>
#include <QShortcut>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr int LeastWidth = 480;

} // namespace

PreferencesWindow::PreferencesWindow(ActionTarget& target, ActionSender& sender,
                                     std::function<void()> willClose)
    : _willClose(std::move(willClose)), _toolbar(new PreferencesToolbar(target, this)),
      _contentView(new QWidget(this)), _panesNotShown(new QWidget(this)), _hotKeyView(new HotKeyPane(target)),
      _generalOptionsView(
          new GeneralOptionsPane(target, sender, Workspace::shared().menuBarsHaveSystemMenu())),
      _aboutView(new AboutPane(target, sender))
{
    installPreferencesAccessibles();
    setObjectName(u"TWPreferences"_s);
    _toolbar->setAccessibleName(u"Tarnwick"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    _panesNotShown->hide();
    for (QWidget* pane : std::initializer_list<QWidget*>{_hotKeyView, _generalOptionsView, _aboutView})
        pane->setParent(_panesNotShown);
    _addToolbarItems();
    _sizePanes();
    // Later: what it shows has its size only then.
    connect(_hotKeyView, &HotKeyPane::resized, this, &PreferencesWindow::_sizePanes, Qt::QueuedConnection);
    setWindowTitle(_toolbar->items().front()->plainLabel());
    for (const auto& keys : {QKeySequence(QKeySequence::Close), QKeySequence(QKeySequence::Cancel)})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, &QWidget::close);
}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::_addToolbarItems()
{
    _toolbar->addItem(
        std::make_unique<ToolbarItem>(u"hotKey"_s, tr("H&ot Key"), 200, paneIcon(PaneIcon::HotKey)));
    _toolbar->addItem(
        std::make_unique<ToolbarItem>(u"general"_s, tr("&General"), 100, paneIcon(PaneIcon::General)));
    _toolbar->addItem(
        std::make_unique<ToolbarItem>(u"about"_s, tr("Abo&ut"), 400, paneIcon(PaneIcon::About)));
}

void PreferencesWindow::_sizePanes()
{
    const QList<QWidget*> panes{_hotKeyView, _generalOptionsView, _aboutView};
    int width = std::max(LeastWidth, _toolbar->sizeHint().width());
    for (QWidget* pane : panes) {
        pane->ensurePolished();
        pane->layout()->activate();
        width = std::max(width, pane->minimumSizeHint().width());
    }
    for (QWidget* pane : panes) {
        const int forWidth = pane->layout()->totalHeightForWidth(width);
        pane->resize(width, forWidth >= 0 ? forWidth : pane->sizeHint().height());
    }
    setFixedSize(width, _toolbar->sizeHint().height() + _shownPane().height());
    _layOut();
}

const QWidget& PreferencesWindow::_shownPane() const
{
    const auto* shown = _contentView->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return shown ? *shown : *_hotKeyView;
}

Alert PreferencesWindow::alertAboutWhatIsMissing(const QString& command, bool inOtherBuilds)
{
    const QString limits =
        tr("The hot key and the mouse button open the menu only while an application that runs on "
           "XWayland is "
           "in front.\n\nFor all others, let a key of the desktop run this command:\n%1\n\nOver them the "
           "menu "
           "obeys the pointer alone, and it may open where the pointer was seen last.")
            .arg(command);
    const QString reason =
        inOtherBuilds
            ? tr("This Tarnwick was built without LayerShellQt, so it runs on XWayland. One that was built "
                 "with it runs on Wayland itself, without these limits, where the compositor allows that.")
            : tr("Tarnwick runs on XWayland here: this compositor lets no program open a menu at the pointer "
                 "on Wayland itself.");
    return {Alert::Style::Informational,
            tr("In this Wayland session a part of Tarnwick is missing."),
            limits + u"\n\n"_s + reason,
            {tr("OK")}};
}

void PreferencesWindow::orderFrontRegardless()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
}

void PreferencesWindow::removePanes()
{
    const auto shown = _contentView->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* pane : shown)
        pane->setParent(_panesNotShown);
}

void PreferencesWindow::addPane(QWidget& pane)
{
    const QPoint origin = pane.pos();
    pane.setParent(_contentView);
    pane.move(origin);
    pane.show();
}

QWidget& PreferencesWindow::contentView() const
{
    _layOut(); // a hidden window is told of its size only when it is shown
    return *_contentView;
}

void PreferencesWindow::_layOut() const
{
    const int barHeight = _toolbar->sizeHint().height();
    _toolbar->setGeometry(0, 0, width(), barHeight);
    _contentView->setGeometry(0, barHeight, width(), std::max(0, height() - barHeight));
}

void PreferencesWindow::resizeEvent(QResizeEvent* /*event*/)
{
    _layOut();
}

void PreferencesWindow::closeEvent(QCloseEvent* event)
{
    _willClose();
    event->accept();
}

bool PreferencesWindow::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    const auto type = event->type();
    if (type == QEvent::ApplicationFontChange) {
        const auto widgets = findChildren<QWidget*>();
        for (QWidget* widget : widgets) { // the toolkit tells windows only
            QEvent change(type);
            QCoreApplication::sendEvent(widget, &change);
        }
    }
    // Later: the controls hear of a style after the window.
    if (type == QEvent::ApplicationFontChange || type == QEvent::StyleChange)
        QMetaObject::invokeMethod(this, &PreferencesWindow::_sizePanes, Qt::QueuedConnection);
    return handled;
}

} // namespace tarnwick

#include "moc_PreferencesWindow.cpp"
