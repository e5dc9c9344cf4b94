// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandFrontApplication.h"

namespace tarnwick {

std::unique_ptr<FrontApplication> WaylandFrontApplication::make(AtspiActiveWindow& inTree)
{
    return std::make_unique<WaylandFrontApplication>(inTree);
}

bool WaylandFrontApplication::watch()
{
    return true;
}

std::optional<FrontWindow> WaylandFrontApplication::lookAgain()
{
    const AtspiWindow found = _inTree.current();
    _front = {XCB_WINDOW_NONE, found.processIdentifier, found.reference};
    return _front;
}

void WaylandFrontApplication::afterChangesSoFar(std::function<void()> then)
{
    QMetaObject::invokeMethod(this, std::move(then), Qt::QueuedConnection);
}

} // namespace tarnwick

#include "moc_WaylandFrontApplication.cpp"
