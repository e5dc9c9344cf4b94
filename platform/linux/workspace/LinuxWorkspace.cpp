// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/LinuxWorkspace.h"

#include "platform/linux/look/LinuxLook.h"
#include "platform/linux/x11/X11AllWorkspaces.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/linux/xdg/UrlOpener.h"
#include "platform/linux/xdg/XdgSession.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

LinuxWorkspace::LinuxWorkspace(std::shared_ptr<LinuxReading> reading, std::unique_ptr<LinuxLook> look)
    : _reading(std::move(reading)),
      _announcements(*_reading->front, [&bars = _reading->menuBars](
                                           const FrontWindow& window) { return bars.ownerOf(window); }),
      _look(std::move(look))
{
}

LinuxWorkspace::LinuxWorkspace(std::shared_ptr<LinuxReading> reading)
    : LinuxWorkspace(std::move(reading), nullptr)
{
}

LinuxWorkspace::~LinuxWorkspace() = default;

std::optional<Workspace::ActiveApplication> LinuxWorkspace::activeApplication() const
{
    const auto processIdentifier = activeProcessIdentifier();
    if (!processIdentifier)
        return std::nullopt;
    return ActiveApplication{_reading->names.of(*processIdentifier), processIdentifier};
}

std::optional<qint64> LinuxWorkspace::activeProcessIdentifier() const
{
    return _reading->front->current().processIdentifier;
}

bool LinuxWorkspace::installAppFrontSwitchedHandler(std::function<void()> switched)
{
    return _announcements.start(std::move(switched));
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

void LinuxWorkspace::setCollectionBehavior(QWidget& window, CollectionBehavior behavior)
{
    if (behavior == WindowCollectionBehaviorCanJoinAllSpaces)
        new X11AllWorkspaces(window); // goes with the window
}

QString LinuxWorkspace::commandThatPopsUp() const
{
    // Run on Wayland itself nothing is missing.
    if (!xdg_session::isWayland() || !X11Connection::shared())
        return {};
    return u"gapplication action %1 %2"_s.arg(desktop_names::BusName, desktop_names::PopUpAction);
}

bool LinuxWorkspace::accessibilityDisplayShouldReduceMotion() const
{
    return _look && _look->reducesMotion();
}

} // namespace tarnwick
