// SPDX-License-Identifier: MIT
#include "platform/linux/elements/MenuBars.h"

#include "platform/linux/menus/OwnMenuSource.h"

#include <QCoreApplication>

#include <algorithm>

namespace tarnwick {

namespace {

/// More windows than this are not kept in mind.
constexpr qsizetype MaximumWindows = 200;
/// Of the half second for an update: what the tree has is read, too.
constexpr std::chrono::milliseconds MostForLooking{200};
/// A look that did not come to its end is not tried again at each reading.
constexpr std::chrono::seconds AfterAFailedLook{3};

} // namespace

FoundMenuBar MenuBars::of(const FrontWindow& front)
{
    _last = _find(front);
    _processOfLast = front.processIdentifier;
    return _last;
}

void MenuBars::readAhead(const FrontWindow& front, std::chrono::milliseconds most)
{
    if (_last && _processOfLast == front.processIdentifier)
        _last.source->readAhead(_last.bar.service, most);
}

FoundMenuBar MenuBars::_find(const FrontWindow& front)
{
    if (front.processIdentifier == QCoreApplication::applicationPid())
        return OwnMenuSource::hasBar() ? FoundMenuBar{&_sources.own, OwnMenuSource::bar(), XCB_WINDOW_NONE}
                                       : FoundMenuBar{};
    if (!front)
        return {};
    const auto process = front.processIdentifier;
    if (front.isNative())
        return _findOfNative(front);
    const X11Window window{front.window, process};
    if (FoundMenuBar found = _orOutside(window, _ofWindow(window, true)))
        return found;
    for (const xcb_window_t id : _windows.withOwners(front.window).mid(1)) {
        const X11Window owner{id, _windows.processIdentifier(id)};
        if (FoundMenuBar found = _orOutside(owner, _ofWindow(owner, false)))
            return found;
    }
    return process ? _orOutsideAnyWindow(*process, _ofAnyWindow(*process)) : FoundMenuBar();
}

FoundMenuBar MenuBars::_findOfNative(const FrontWindow& front)
{
    FoundMenuBar inside = _ofNative(front);
    if (!_mayLackMenus(inside))
        return inside;
    const auto& [service, path] = front.menuBar;
    if (const BusReference told = _outside.menuBars.at(service, path); _hasEntries(told))
        return {&_outside.menus, told, XCB_WINDOW_NONE};
    return front.processIdentifier ? _orOutsideAnyWindow(*front.processIdentifier, inside) : inside;
}

FoundMenuBar MenuBars::_ofNative(const FrontWindow& front)
{
    auto& [tree, exports, own] = _sources;
    const auto process = front.processIdentifier;
    if (!front.accessible)
        return process ? _ofAnyWindow(*process) : FoundMenuBar();
    FoundMenuBar inTree{&tree.menus, tree.menuBars.below(front.accessible), XCB_WINDOW_NONE};
    const auto toolkit = tree.menuBars.toolkitOf(front.accessible);
    if (inTree.bar && toolkit != AtspiToolkit::Gtk4)
        return inTree;
    if (process && (toolkit == AtspiToolkit::Gtk || toolkit == AtspiToolkit::Gtk4))
        if (const BusReference exported = exports.menuBars.ofProcess(*process, _position(front)))
            return {&exports.menus, exported, XCB_WINDOW_NONE};
    if (inTree.bar)
        return inTree;
    return process ? _ofAnyWindow(*process) : FoundMenuBar();
}

WindowPosition MenuBars::_position(const FrontWindow& front)
{
    const QList<BusReference> windows = _sources.tree.menuBars.windowsOf(*front.processIdentifier);
    return {windows.indexOf(front.accessible), windows.size()};
}

FoundMenuBar MenuBars::_ofWindow(const X11Window& window, bool active)
{
    auto& [tree, exports, own] = _sources;
    AtspiMenuBars& bars = tree.menuBars;
    const BusReference known = bars.knownOf(window);
    if (known && !bars.hidesClosedMenus(known)) {
        _haveFilled(window.id, known);
        return {&tree.menus, known, window.id};
    }
    const BusReference exported = exports.menuBars.ofWindow(window.id);
    FoundMenuBar second{exported ? &exports.menus : nullptr, exported, window.id};
    if (second && bars.hidesClosedMenus(window))
        return second;
    const BusReference inTree = known ? known : bars.ofWindow(window, active);
    // This is asked even where there is no second one, so that it is known the next time.
    const bool hidden = inTree && bars.hidesClosedMenus(inTree);
    if (second && (hidden || (!inTree && !exports.menus.isEmpty(exported))))
        return second;
    if (!inTree)
        return {};
    _haveFilled(window.id, inTree);
    return {&tree.menus, inTree, window.id};
}

void MenuBars::_haveFilled(xcb_window_t window, const BusReference& bar)
{
    auto& [tree, exports, own] = _sources;
    if (tree.menuBars.toolkitOf(bar) != AtspiToolkit::Gtk)
        return;
    const BusReference exported = exports.menuBars.ofWindow(window);
    if (!exported || !GtkMenuBars::isOfModule(exported))
        return;
    const QList<BusReference> empty = tree.menuBars.emptyMenusOf(bar);
    const QList<BusReference> leftEmpty = _leftEmpty.value(window);
    const auto isNew = [&](const BusReference& menu) { return !leftEmpty.contains(menu); };
    const auto notBefore = _failedLooks.value(window);
    if (!std::ranges::any_of(empty, isNew) || (notBefore && !notBefore->passed()))
        return;
    if (_leftEmpty.size() + _failedLooks.size() >= MaximumWindows) {
        _leftEmpty.clear();
        _failedLooks.clear();
    }
    if (!exports.menus.lookAtAll(exported, MostForLooking)) {
        _failedLooks.insert(window, Deadline::in(AfterAFailedLook));
        return;
    }
    _leftEmpty.insert(window, empty);
    tree.menus.menusAreMade(bar);
}

FoundMenuBar MenuBars::_ofAnyWindow(qint64 processIdentifier)
{
    auto& [tree, exports, own] = _sources;
    if (const AtspiMenuBars::Found found = tree.menuBars.ofAnyWindow(processIdentifier); found.bar)
        return {&tree.menus, found.bar, found.owner};
    for (const xcb_window_t window : _windows.windowsOf(processIdentifier))
        if (const BusReference exported = exports.menuBars.ofWindow(window);
            exported && !exports.menus.isEmpty(exported))
            return {&exports.menus, exported, window};
    return {};
}

FoundMenuBar MenuBars::_orOutside(const X11Window& window, const FoundMenuBar& inside)
{
    if (!_mayLackMenus(inside))
        return inside;
    if (const BusReference bar = _outside.menuBars.ofWindow(window.id); _hasEntries(bar))
        return {&_outside.menus, bar, window.id};
    if (!inside || !window.processIdentifier)
        return inside;
    const BusReference only = _outside.menuBars.ofProcess(*window.processIdentifier);
    return _hasEntries(only) ? FoundMenuBar{&_outside.menus, only, window.id} : inside;
}

FoundMenuBar MenuBars::_orOutsideAnyWindow(qint64 processIdentifier, const FoundMenuBar& inside)
{
    if (!_mayLackMenus(inside))
        return inside;
    for (const xcb_window_t window : _windows.windowsOf(processIdentifier))
        if (const BusReference bar = _outside.menuBars.ofWindow(window); _hasEntries(bar))
            return {&_outside.menus, bar, window};
    const BusReference only = _outside.menuBars.ofProcess(processIdentifier);
    return _hasEntries(only) ? FoundMenuBar{&_outside.menus, only, XCB_WINDOW_NONE} : inside;
}

bool MenuBars::_hasEntries(const BusReference& outside)
{
    return outside && _outside.menus.hasEntries(outside);
}

bool MenuBars::_mayLackMenus(const FoundMenuBar& found)
{
    AccessibleTree& tree = _sources.tree;
    if (found.source != &tree.menus)
        return !found;
    const auto toolkit = tree.menuBars.toolkitOf(found.bar);
    return toolkit == AtspiToolkit::Unknown || toolkit == AtspiToolkit::Bridge;
}

MenuBarOwner MenuBars::ownerOf(const FrontWindow& front)
{
    const FoundMenuBar found = of(front);
    if (!found)
        return front.isNative() ? MenuBarOwner{XCB_WINDOW_NONE, front.accessible}
                                : MenuBarOwner{_windows.withOwners(front.window).last(), {}};
    return found.owner != XCB_WINDOW_NONE ? MenuBarOwner{found.owner, {}}
                                          : MenuBarOwner{XCB_WINDOW_NONE, found.bar};
}

} // namespace tarnwick
