// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxWorkspace.h"

#include "platform/linux/UrlOpener.h"
#include "platform/linux/X11AllWorkspaces.h"
#include "platform/qt/MenuTracking.h"

#include <utility>

namespace tarnwick {

LinuxWorkspace::LinuxWorkspace(X11ActiveWindow& activeWindow, ApplicationNames& names, MenuBars& menuBars)
    : _activeWindow(activeWindow), _names(names),
      _switches(activeWindow.current(),
                [&menuBars](const FrontWindow& front) { return menuBars.ownerOf(front); })
{
}

std::optional<Workspace::ActiveApplication> LinuxWorkspace::activeApplication() const
{
    const FrontWindow front = _activeWindow.current();
    if (!front.processIdentifier)
        return std::nullopt;
    return ActiveApplication{_names.of(*front.processIdentifier), front.processIdentifier};
}

bool LinuxWorkspace::installAppFrontSwitchedHandler(std::function<void()> switched)
{
    if (!_activeWindow.watching())
        return false;
    if (!_switched) {
        connect(&_activeWindow, &X11ActiveWindow::changed, this, &LinuxWorkspace::_frontChanged);
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

void LinuxWorkspace::_frontChanged(const FrontWindow& front)
{
    if (!_switches.isSwitch(front))
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

} // namespace tarnwick
