// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandFrontApplication.h"

#include "platform/qt/menu/MenuTracking.h"

#include <utility>

namespace tarnwick {

std::unique_ptr<FrontApplication> WaylandFrontApplication::make(AtspiActiveWindow& inTree,
                                                                ForeignToplevels& toplevels)
{
    return std::make_unique<WaylandFrontApplication>(inTree, toplevels);
}

WaylandFrontApplication::WaylandFrontApplication(AtspiActiveWindow& inTree, ForeignToplevels& toplevels)
    : _inTree(inTree), _toplevels(toplevels)
{
    _none.setSingleShot(true);
    _none.setInterval(NoneCounts);
    connect(&_none, &QTimer::timeout, this, &WaylandFrontApplication::_noneActive);
    _step.setSingleShot(true);
    connect(&_step, &QTimer::timeout, this, &WaylandFrontApplication::_look);
    connect(&_toplevels, &ForeignToplevels::activeChanged, this, &WaylandFrontApplication::_activeChanged);
}

bool WaylandFrontApplication::watch()
{
    _watching = true;
    const FrontWindow before = _front;
    static_cast<void>(lookAgain());
    if (_front != before)
        Q_EMIT changed(_front);
    return true;
}

std::optional<FrontWindow> WaylandFrontApplication::lookAgain()
{
    // Under a menu of ours no application may be the active one.
    if (!MenuTracking::shared().active()) {
        _front = _inTreeNow();
        _toplevel = _toplevels.active();
    }
    return _front;
}

void WaylandFrontApplication::afterChangesSoFar(std::function<void()> then)
{
    static_cast<void>(_toplevels.activeNow());
    QMetaObject::invokeMethod(
        this,
        [this, then = std::move(then)]() mutable {
            _whenSettled.push_back(std::move(then));
            if (!_step.isActive() && !_none.isActive())
                _settle();
        },
        Qt::QueuedConnection);
}

void WaylandFrontApplication::_activeChanged()
{
    if (!_watching)
        return;
    if (_toplevels.active() == 0) {
        _none.start();
        return;
    }
    _none.stop();
    if (_toplevels.active() != _toplevel)
        _begin();
    else if (!_step.isActive())
        _settle();
}

void WaylandFrontApplication::_noneActive()
{
    if (_toplevels.active() == 0 && !(_excused && _excused()))
        _begin();
    else if (!_step.isActive())
        _settle();
}

void WaylandFrontApplication::_begin()
{
    // The application that a menu is for is in front no more, whoever is.
    MenuTracking::shared().cancel();
    _patience.setRemainingTime(Patience);
    _step.start(0);
}

void WaylandFrontApplication::_look()
{
    const FrontWindow found = _inTreeNow();
    const bool isBack = found == _front && _toplevels.active() == _toplevel;
    const bool isAnother = found && found != _front;
    if (!isBack && !isAnother && !_patience.hasExpired()) {
        _step.start(Step);
        return;
    }
    // Where nobody says it is his, a window that is not in the tree is in front: that counts as none.
    _toplevel = _toplevels.active();
    if (found != _front) {
        _front = found;
        Q_EMIT changed(_front);
    }
    _settle();
}

void WaylandFrontApplication::_settle()
{
    for (const auto& then : std::exchange(_whenSettled, {}))
        then();
}

FrontWindow WaylandFrontApplication::_inTreeNow()
{
    const AtspiWindow found = _inTree.current();
    return {XCB_WINDOW_NONE, found.processIdentifier, found.reference};
}

} // namespace tarnwick

#include "moc_WaylandFrontApplication.cpp"
