// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtApplication.h"

#include "foundation/ApplicationDelegate.h"
#include "menu/Menu.h"
#include "platform/qt/application/MainMenu.h"

#include <QApplication>
#include <QFile>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

bool isWindow(const QWidget& widget)
{
    return widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
}

bool comesToTheFront(const QEvent& event)
{
    return event.type() == QEvent::Show || event.type() == QEvent::ZOrderChange ||
           event.type() == QEvent::WindowActivate;
}

} // namespace

QtApplication::QtApplication(QtEventConverter converter, quint64 mainMenuModifier)
    : _converter(std::move(converter)),
      _makeMainMenu([this, mainMenuModifier] { return makeMainMenu(*this, mainMenuModifier); })
{
    // Tarnwick lives in the status area: no window's end is the program's.
    QApplication::setQuitOnLastWindowClosed(false);
    QCoreApplication::setQuitLockEnabled(false);
    qApp->installEventFilter(this);
}

QtApplication::~QtApplication() = default;

std::shared_ptr<Menu> QtApplication::mainMenu() const
{
    if (!_mainMenu)
        _mainMenu = _makeMainMenu();
    return _mainMenu;
}

void QtApplication::terminate(ActionSender* /*sender*/)
{
    if (_terminating || (_delegate && !_delegate->applicationShouldTerminate()))
        return;
    _terminating = true;
    QCoreApplication::exit(EXIT_SUCCESS); // ends the loops of open menus and alerts as well
}

void QtApplication::activateIgnoringOtherApps(bool ignoringOtherApps)
{
    if (!ignoringOtherApps && QGuiApplication::applicationState() != Qt::ApplicationActive)
        return;
    QWidget* front = nullptr;
    const auto windows = _windows; // each that is raised becomes the last one
    for (QWidget* window : windows) {
        if (!window || !window->isVisible() || window->isMinimized())
            continue;
        window->raise();
        front = window;
    }
    if (front)
        front->activateWindow();
}

bool QtApplication::sendActionToFrom(const QString& action, ActionTarget* target, ActionSender* sender)
{
    if (!target || !target->respondsTo(action))
        return false;
    target->perform(action, sender);
    return true;
}

void QtApplication::beep()
{
    QApplication::beep();
}

QString QtApplication::bundlePath() const
{
    return QCoreApplication::applicationFilePath();
}

QString QtApplication::pathForResourceOfType(const QString& name, const QString& type) const
{
    const QString path = u":/resources/%1.%2"_s.arg(name, type);
    return QFile::exists(path) ? path : QString();
}

bool QtApplication::eventFilter(QObject* receiver, QEvent* event)
{
    if (comesToTheFront(*event) && receiver->isWidgetType() && isWindow(static_cast<QWidget&>(*receiver))) {
        _windows.removeAll(nullptr);
        _windows.removeAll(static_cast<QWidget*>(receiver));
        _windows.append(static_cast<QWidget*>(receiver));
    }
    if (auto converted = _converter.convert(*event)) {
        _currentEvent = std::move(converted);
        if (event->type() == QEvent::KeyPress && receiver->isWidgetType() &&
            static_cast<QWidget*>(receiver)->isWindow() && !QApplication::activeModalWidget() &&
            !QApplication::activePopupWidget())
            return performKeyEquivalent(*mainMenu(), *_currentEvent);
    }
    return QObject::eventFilter(receiver, event);
}

} // namespace tarnwick

#include "moc_QtApplication.cpp"
