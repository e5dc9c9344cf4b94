// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/WaylandFrontApplication.h"

#include "platform/qt/menu/MenuTracking.h"

#include <QGuiApplication>

#include <utility>

namespace tarnwick {

namespace {

bool isOwn(const FrontWindow& window)
{
    return window.processIdentifier == QCoreApplication::applicationPid();
}

/// Our own windows are not in the tree that we see.
bool isKnown(const FrontWindow& window)
{
    return window.accessible || isOwn(window);
}

} // namespace

std::unique_ptr<FrontApplication> WaylandFrontApplication::make(AtspiActiveWindow& inTree,
                                                                std::shared_ptr<Toplevels> toplevels)
{
    return std::make_unique<WaylandFrontApplication>(inTree, std::move(toplevels));
}

WaylandFrontApplication::WaylandFrontApplication(AtspiActiveWindow& inTree,
                                                 std::shared_ptr<Toplevels> toplevels)
    : _inTree(inTree), _toplevels(std::move(toplevels))
{
    _none.setSingleShot(true);
    _none.setInterval(NoneCounts);
    connect(&_none, &QTimer::timeout, this, &WaylandFrontApplication::_noneActive);
    _step.setSingleShot(true);
    connect(&_step, &QTimer::timeout, this, &WaylandFrontApplication::_look);
    _late.setSingleShot(true);
    connect(&_late, &QTimer::timeout, this, &WaylandFrontApplication::_lookLate);
    connect(_toplevels.get(), &Toplevels::activeChanged, this, &WaylandFrontApplication::_activeChanged);
    connect(_toplevels.get(), &Toplevels::menuBarChanged, this, &WaylandFrontApplication::_menuBarChanged);
    connect(&MenuTracking::shared(), &MenuTracking::ended, this, &WaylandFrontApplication::_menuBarChanged,
            Qt::QueuedConnection);
    connect(_toplevels.get(), &Toplevels::ended, this, &WaylandFrontApplication::_ended,
            Qt::QueuedConnection);
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
    if (!MenuTracking::shared().active() && !_isStillActive()) {
        _front = _found();
        _toplevel = _toplevels->active();
    }
    return _front;
}

void WaylandFrontApplication::afterChangesSoFar(std::function<void()> then)
{
    static_cast<void>(_toplevels->activeNow());
    QMetaObject::invokeMethod(
        this,
        [this, then = std::move(then)]() mutable {
            _whenSettled.push_back(std::move(then));
            if (_isSettled())
                _settle();
        },
        Qt::QueuedConnection);
}

void WaylandFrontApplication::_activeChanged()
{
    if (!_watching)
        return;
    if (_toplevels->active() == 0) {
        _none.start();
        return;
    }
    _none.stop();
    _wait.reset();
    if (_toplevels->active() != _toplevel)
        _begin();
    else if (_isSettled())
        _settle();
}

/// While a menu of ours has the keyboard that is the only word of it: no window is active before and after.
void WaylandFrontApplication::_ended(Toplevels::Window window)
{
    if (_watching && window == _toplevel && _toplevels->active() == 0)
        _begin();
}

/// Not under a menu of ours, which has been read by now: that is for what there was when it opened.
void WaylandFrontApplication::_menuBarChanged()
{
    if (!_watching || !_front || _step.isActive() || MenuTracking::shared().active() ||
        _toplevels->active() != _toplevel)
        return;
    FrontWindow front = _front;
    front.menuBar = _toplevels->about(_toplevel).menuBar;
    _become(front);
}

void WaylandFrontApplication::_noneActive()
{
    if (_toplevels->active() != 0 || !_excused || _excused()) {
        _noneActiveForSure();
        return;
    }
    _wait = std::make_shared<bool>();
    _afterNews([this, wait = std::weak_ptr(_wait)] {
        if (wait.expired())
            return;
        _wait.reset();
        _noneActiveForSure();
    });
}

void WaylandFrontApplication::_noneActiveForSure()
{
    if (_toplevels->active() == 0 && !(_excused && _excused()))
        _begin();
    else if (_isSettled())
        _settle();
}

void WaylandFrontApplication::_begin()
{
    // The application that a menu is for is in front no more, whoever is.
    MenuTracking::shared().cancel();
    _patience.setRemainingTime(Patience);
    _late.stop();
    _wait.reset();
    _step.start(0);
}

void WaylandFrontApplication::_look()
{
    const FrontWindow found = _found();
    const bool isBack = found == _front && _toplevels->active() == _toplevel;
    const bool isAnother = isKnown(found) && found != _front;
    if (!isBack && !isAnother && !_patience.hasExpired()) {
        _step.start(Step);
        return;
    }
    // Where nobody says it is his, a window that is not in the tree is in front: that counts as none, or as
    // what is known of it.
    _toplevel = _toplevels->active();
    _become(found);
    if (!isBack && !isAnother)
        _late.start(FirstLateStep);
    if (_isSettled()) // else the window may have lost the front meanwhile
        _settle();
}

void WaylandFrontApplication::_lookLate()
{
    const FrontWindow found = _found();
    if (isKnown(found) && found != _front && !MenuTracking::shared().active())
        _become(found);
    else if (_late.intervalAsDuration() < LastLateStep)
        _late.start(2 * _late.intervalAsDuration());
}

void WaylandFrontApplication::_become(const FrontWindow& found)
{
    if (found == _front)
        return;
    _front = found;
    Q_EMIT changed(_front);
}

bool WaylandFrontApplication::_isStillActive()
{
    return _isSettled() && _front.accessible && _toplevel != 0 && _toplevels->active() == _toplevel &&
           !_inTree.isInactive(_front.accessible, Deadline::in(MostForAnAnswer));
}

bool WaylandFrontApplication::_isSettled() const
{
    return !_step.isActive() && !_none.isActive() && !_wait;
}

void WaylandFrontApplication::_settle()
{
    for (const auto& then : std::exchange(_whenSettled, {}))
        then();
}

FrontWindow WaylandFrontApplication::_found()
{
    FrontHint told = _toplevels->about(_toplevels->active());
    if (!told.processIdentifier && QGuiApplication::focusWindow() && !MenuTracking::shared().active())
        told.processIdentifier = QCoreApplication::applicationPid();
    FrontWindow front{XCB_WINDOW_NONE, told.processIdentifier};
    if (isOwn(front))
        return front;
    if (const AtspiWindow found = _inTree.current(told.processIdentifier, told.title))
        front = {XCB_WINDOW_NONE, found.processIdentifier, found.reference};
    if (front.processIdentifier)
        front.menuBar = told.menuBar;
    return front;
}

} // namespace tarnwick

#include "moc_WaylandFrontApplication.cpp"
