// SPDX-License-Identifier: MIT
#include "platform/linux/AtspiMenuBars.h"

#include "platform/linux/AtspiConstants.h"
#include "platform/linux/AtspiToolkit.h"
#include "platform/linux/MenuBarSearch.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace tarnwick {

namespace {

/// More windows than this are not kept in mind.
constexpr qsizetype MaximumWindows = 200;
/// For asking all applications about a window whose process none of them is.
constexpr auto StrangerTime = 200ms;

} // namespace

AtspiMenuBars::AtspiMenuBars(AtspiBus& bus, AtspiApplications& applications, X11Windows& windows,
                             ReadingBudget& budget)
    : _bus(bus), _applications(applications), _windows(windows), _budget(budget)
{
}

BusReference AtspiMenuBars::ofWindow(const FrontWindow& window, bool active)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline();
    if (!_bus.connection(deadline))
        return {};
    const Known known = _known.value(window.window);
    if (known.bar && known.processIdentifier == window.processIdentifier &&
        _bus.facts(known.bar, {AtspiQuestion::Role}, deadline).role == atspi::RoleMenuBar)
        return known.bar;
    _known.remove(window.window);
    const auto match = _match(window, active, deadline);
    if (!match)
        return {};
    BusReference bar = findMenuBar(_bus, match->window, deadline);
    if (bar && match->certain) {
        if (_known.size() >= MaximumWindows)
            _known.clear();
        _known.insert(window.window, {window.processIdentifier, bar});
    }
    return bar;
}

std::optional<AtspiWindowMatch> AtspiMenuBars::_match(const FrontWindow& window, bool active,
                                                      Deadline deadline)
{
    const auto title = _windows.title(window.window);
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
    return windows.isEmpty() ? std::nullopt
                             : std::optional(AtspiWindowMatch{windows.first().reference, false});
}

BusReference AtspiMenuBars::below(const BusReference& window)
{
    const ReadingBudget::Reading reading(_budget);
    return findMenuBar(_bus, window, reading.deadline());
}

bool AtspiMenuBars::hidesClosedMenus(const BusReference& bar)
{
    const ReadingBudget::Reading reading(_budget);
    const auto name =
        _bus.facts(_bus.root(bar.service), {AtspiQuestion::Toolkit}, reading.deadline()).toolkit;
    return name && toolkitNamed(*name) == AtspiToolkit::Gtk4;
}

bool AtspiMenuBars::hidesClosedMenus(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const auto roots = _applications.rootsOf(processIdentifier, reading.deadline());
    return std::any_of(roots.cbegin(), roots.cend(),
                       [this](const BusReference& root) { return hidesClosedMenus(root); });
}

AtspiMenuBars::Found AtspiMenuBars::ofAnyWindow(qint64 processIdentifier)
{
    const ReadingBudget::Reading reading(_budget);
    const Deadline deadline = reading.deadline();
    for (const AtspiFacts& window :
         _applications.windowsOf(_applications.rootsOf(processIdentifier, deadline), deadline)) {
        const BusReference bar = findMenuBar(_bus, window.reference, deadline);
        if (!bar)
            continue;
        const auto known =
            std::find_if(_known.cbegin(), _known.cend(), [&](const Known& one) { return one.bar == bar; });
        return {bar, known == _known.cend() ? xcb_window_t{XCB_WINDOW_NONE} : known.key()};
    }
    return {};
}

} // namespace tarnwick
