// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/LinuxWorkspace.h"

#include "platform/linux/look/LinuxLook.h"
#include "platform/linux/x11/X11AllWorkspaces.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/linux/xdg/UrlOpener.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

bool isWaylandSession()
{
    return qEnvironmentVariable("XDG_SESSION_TYPE") == u"wayland"_s ||
           qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

} // namespace

LinuxWorkspace::LinuxWorkspace(X11ActiveWindow& activeWindow, ApplicationNames& names, MenuBars& menuBars,
                               AtspiActiveWindow& activeInTree)
    : _activeWindow(activeWindow), _names(names), _activeInTree(activeInTree),
      _switches(activeWindow.current(),
                [&menuBars](const FrontWindow& front) { return menuBars.ownerOf(front); })
{
    connect(&_activeWindow, &X11ActiveWindow::changed, this, &LinuxWorkspace::_frontChanged);
}

LinuxWorkspace::~LinuxWorkspace() = default;

std::optional<Workspace::ActiveApplication> LinuxWorkspace::activeApplication() const
{
    const auto processIdentifier = activeProcessIdentifier();
    if (!processIdentifier)
        return std::nullopt;
    return ActiveApplication{_names.of(*processIdentifier), processIdentifier};
}

std::optional<qint64> LinuxWorkspace::activeProcessIdentifier() const
{
    return _activeWindow.current().processIdentifier;
}

bool LinuxWorkspace::installAppFrontSwitchedHandler(std::function<void()> switched)
{
    if (!_activeWindow.watching())
        return false;
    if (!_switched) {
        // What has changed before is no switch, not even where it has yet to be told.
        QCoreApplication::sendPostedEvents(&_activeWindow, QEvent::MetaCall);
        connect(&MenuTracking::shared(), &MenuTracking::ended, this, &LinuxWorkspace::_deliver,
                Qt::QueuedConnection);
    }
    _switched = std::move(switched);
    return true;
}

void LinuxWorkspace::setCollectionBehavior(QWidget& window, CollectionBehavior behavior)
{
    if (behavior == WindowCollectionBehaviorCanJoinAllSpaces)
        new X11AllWorkspaces(window); // goes with the window
}

QString LinuxWorkspace::commandThatPopsUp() const
{
    if (!isWaylandSession())
        return {};
    return u"gapplication action %1 %2"_s.arg(desktop_names::BusName, desktop_names::PopUpAction);
}

bool LinuxWorkspace::frontIsBeside() const
{
    return bool(_activeWindow.current().inTree);
}

void LinuxWorkspace::announceFrontThen(std::function<void()> then)
{
    if (!_activeWindow.current().window)
        _announce(_lookBeside());
    _whenNothingIsUndelivered(std::move(then));
}

void LinuxWorkspace::afterSwitchesSoFar(std::function<void()> then)
{
    _activeWindow.afterChangesSoFar([self = QPointer(this), then = std::move(then)] {
        if (self)
            self->_whenNothingIsUndelivered(then);
    });
}

void LinuxWorkspace::_whenNothingIsUndelivered(std::function<void()> then)
{
    if (_undelivered == 0)
        then();
    else
        _whenDelivered.push_back(std::move(then));
}

FrontWindow LinuxWorkspace::_lookBeside()
{
    FrontWindow front = isWaylandSession() ? _activeInTree.current() : FrontWindow();
    _activeWindow.setBeside(front);
    return front;
}

void LinuxWorkspace::_frontChanged(const FrontWindow& front)
{
    if (!_switched) {
        _switches.startFrom(front);
        return;
    }
    if (front)
        _activeWindow.setBeside({});
    _announce(front ? front : _lookBeside());
}

void LinuxWorkspace::_announce(const FrontWindow& front)
{
    if (!_switched || !_switches.isSwitch(front))
        return;
    ++_undelivered;
    if (MenuTracking::shared().active())
        MenuTracking::shared().cancel(); // its end delivers
    else
        QMetaObject::invokeMethod(this, &LinuxWorkspace::_deliver, Qt::QueuedConnection);
}

void LinuxWorkspace::_deliver()
{
    if (_undelivered == 0 || MenuTracking::shared().active())
        return;
    --_undelivered;
    if (_undelivered > 0)
        QMetaObject::invokeMethod(this, &LinuxWorkspace::_deliver, Qt::QueuedConnection);
    _switched();
    if (_undelivered == 0)
        for (const auto& then : std::exchange(_whenDelivered, {}))
            then();
}

bool LinuxWorkspace::openURL(const QUrl& url)
{
    return UrlOpener::openURL(url);
}

QStringList LinuxWorkspace::searchPathForDirectoriesInDomains(SearchPathDirectory directory,
                                                              SearchPathDomainMask domains,
                                                              bool /*expandTilde*/) const
{
    if (directory != PreferencePanesDirectory || (domains & SystemDomainMask) == 0)
        return {};
    return UrlOpener::preferencePanesDirectories();
}

void LinuxWorkspace::setLook(std::unique_ptr<LinuxLook> look)
{
    _look = std::move(look);
}

bool LinuxWorkspace::accessibilityDisplayShouldReduceMotion() const
{
    return _look && _look->reducesMotion();
}

} // namespace tarnwick

#include "moc_LinuxWorkspace.cpp"
