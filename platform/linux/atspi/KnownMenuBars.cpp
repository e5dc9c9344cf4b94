// SPDX-License-Identifier: MIT
#include "platform/linux/atspi/KnownMenuBars.h"

#include <algorithm>

namespace tarnwick {

namespace {

/// More windows than this are not kept in mind.
constexpr qsizetype MaximumWindows = 200;

} // namespace

BusReference KnownMenuBars::of(const X11Window& window) const
{
    const auto known = _bars.constFind(window.id);
    const bool isKnown =
        known != _bars.cend() && known->certain && known->processIdentifier == window.processIdentifier;
    return isKnown ? known->bar : BusReference();
}

xcb_window_t KnownMenuBars::ownerOf(const BusReference& bar) const
{
    const auto known = std::find_if(_bars.cbegin(), _bars.cend(),
                                    [&](const Bar& one) { return one.certain && one.bar == bar; });
    return known == _bars.cend() ? xcb_window_t{XCB_WINDOW_NONE} : known.key();
}

void KnownMenuBars::found(const X11Window& window, const BusReference& bar,
                          AtspiWindowMatch::Certainty certainty, Time now)
{
    using Certainty = AtspiWindowMatch::Certainty;
    Bar before = _bars.take(window.id);
    if (!bar || certainty == Certainty::Never)
        return;
    if (before.bar != bar || before.processIdentifier != window.processIdentifier)
        before = {window.processIdentifier, bar, false, now};
    before.certain = certainty == Certainty::Now || now - before.since >= Settled;
    if (_bars.size() >= MaximumWindows)
        _bars.clear();
    _bars.insert(window.id, before);
}

} // namespace tarnwick
