// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/AtspiMenuBars.h"

#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/MenuBarSearch.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// More windows than this are not kept in mind.
constexpr qsizetype MaximumWindows = 200;
/// More menus of a bar than this are not looked at.
constexpr qsizetype MaximumMenus = 100;
/// For asking all applications about a window whose process none of them is.
constexpr auto StrangerTime = 200ms;

bool hidesMenus(std::optional<AtspiToolkit> toolkit)
{
    return toolkit == AtspiToolkit::Gtk4;
}

} // namespace

AtspiMenuBars::AtspiMenuBars(AtspiBus& bus, AtspiApplications& applications, AtspiToolkits& toolkits,
                             X11Windows& windows, ReadingBudget& budget, ChildrenJustTold& childrenJustTold)
    : _bus(bus), _applications(applications), _toolkits(toolkits), _windows(windows), _budget(budget),
      _childrenJustTold(childrenJustTold)
{
}

BusReference AtspiMenuBars::knownOf(const X11Window& window)
{
    BusReference known = _known.of(window);
    if (!known)
        return {};
    const ReadingBudget::Reading reading(_budget);
    const AtspiFacts facts =
        _bus.facts(known, {AtspiQuestion::Role, AtspiQuestion::Children}, reading.deadline());
    if (facts.role != atspi::RoleMenuBar) {
        _known.forget(window);
        return {};
    }
    _childrenJustTold.tell(known, facts.children);
    return known;
}

BusReference AtspiMenuBars::ofWindow(const X11Window& window, bool active)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline();
    if (!_bus.connection(deadline))
        return {};
    const auto match = _match(window, active, deadline);
    BusReference bar = match ? findMenuBar(_bus, match->window, deadline) : BusReference();
    _known.found(window, bar, match ? match->certainty : AtspiWindowMatch::Certainty::Never,
                 KnownMenuBars::Time::clock::now());
    return bar;
}

std::optional<AtspiWindowMatch> AtspiMenuBars::_match(const X11Window& window, bool active, Deadline deadline)
{
    const auto title = _windows.title(window.id);
    const auto roots = window.processIdentifier ? _applications.rootsOf(*window.processIdentifier, deadline)
                                                : QList<BusReference>();
    if (!roots.isEmpty())
        return AtspiWindowMatch::among(_applications.windowsOf(roots, deadline), title, active);
    if (!active || !title)
        return std::nullopt;
    // A sandbox may hide the process: then the active window with this title is the one.
    const Deadline limit = deadline.atMostIn(StrangerTime);
    QList<AtspiFacts> windows =
        _applications.windowsOf(_applications.roots(limit).value_or(QList<BusReference>()), limit);
    windows.removeIf([&](const AtspiFacts& facts) {
        return facts.name != title || !facts.states || !atspi::has(*facts.states, atspi::StateActive);
    });
    return windows.isEmpty() ? std::nullopt : std::optional(AtspiWindowMatch{windows.first().reference});
}

QList<BusReference> AtspiMenuBars::windowsOf(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline();
    QList<BusReference> windows;
    for (const AtspiFacts& window :
         _applications.windowsOf(_applications.rootsOf(processIdentifier, deadline), deadline))
        windows.append(window.reference);
    return windows;
}

QList<BusReference> AtspiMenuBars::emptyMenusOf(const BusReference& bar)
{
    const ReadingBudget::Reading reading(_budget);
    QList<AtspiFacts> bars{{.reference = bar}};
    QList<AtspiFacts> menus = _bus.childrenOf(bars, MaximumMenus, reading.deadline());
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& menu : menus)
        inquiries.append({&menu, AtspiQuestion::ChildCount});
    _bus.ask(inquiries, reading.deadline());
    QList<BusReference> empty;
    for (const AtspiFacts& menu : std::as_const(menus))
        if (menu.childCount == 0)
            empty.append(menu.reference);
    return empty;
}

BusReference AtspiMenuBars::below(const BusReference& window)
{
    const ReadingBudget::Reading reading(_budget);
    return findMenuBar(_bus, window, reading.deadline());
}

std::optional<AtspiToolkit> AtspiMenuBars::toolkitOf(const BusReference& object)
{
    const ReadingBudget::Reading reading(_budget);
    return _toolkits.of(_bus.root(object.service), reading.deadline());
}

bool AtspiMenuBars::hidesClosedMenus(const BusReference& bar)
{
    return hidesMenus(toolkitOf(bar));
}

bool AtspiMenuBars::hidesClosedMenus(const X11Window& window)
{
    if (!window.processIdentifier)
        return false;
    const auto known = _hiding.constFind(window.id);
    if (known != _hiding.cend() && known->processIdentifier == window.processIdentifier)
        return known->closedMenus;

    const ReadingBudget::Reading reading(_budget);
    const auto roots = _applications.rootsOf(*window.processIdentifier, reading.deadline());
    if (roots.isEmpty())
        return false;
    _toolkits.ask(roots, reading.deadline());
    const auto hidesClosed = [this](const BusReference& root) { return hidesMenus(_toolkits.told(root)); };
    const auto hasTold = [this](const BusReference& root) { return _toolkits.told(root).has_value(); };
    const bool hides = std::any_of(roots.cbegin(), roots.cend(), hidesClosed);
    if (_hiding.size() >= MaximumWindows)
        _hiding.clear();
    if (std::all_of(roots.cbegin(), roots.cend(), hasTold))
        _hiding.insert(window.id, Hiding{*window.processIdentifier, hides});
    return hides;
}

AtspiMenuBars::Found AtspiMenuBars::ofAnyWindow(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline();
    for (const AtspiFacts& window :
         _applications.windowsOf(_applications.rootsOf(processIdentifier, deadline), deadline)) {
        const BusReference bar = findMenuBar(_bus, window.reference, deadline);
        if (bar)
            return {bar, _known.ownerOf(bar)};
    }
    return {};
}

} // namespace tarnwick
