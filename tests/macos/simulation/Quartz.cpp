// SPDX-License-Identifier: MIT
// Simulated Quartz: displays, the pointer, event taps.
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/MacState.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <ApplicationServices/ApplicationServices.h>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}
MacState& state()
{
    return MacState::instance();
}
MacObjects& objects()
{
    return MacObjects::instance();
}

struct MacEvent final : MacHandle
{
    QPointF location;
};

bool isLive(const MacTap* tap)
{
    return !tap->dead && tap->enabled && tap->scheduled;
}

} // namespace

namespace tarnwick {

bool SimulatedMac::sendEvent(quint32 type)
{
    auto* event = objects().make<MacEvent>();
    MacObjects::hold(event);
    const auto taps = state().taps;
    for (auto each = taps.crbegin(); each != taps.crend(); ++each) {
        const MacTap* tap = *each;
        if (!isLive(tap) || (tap->eventsOfInterest >> type & 1U) == 0)
            continue;
        const CGEventRef passed = tap->callback(nullptr, static_cast<CGEventType>(type),
                                                referenceTo<CGEventRef>(event), tap->userInfo);
        if (passed != referenceTo<CGEventRef>(event))
            return false;
    }
    return true;
}

bool SimulatedMac::disableTap(quint32 reason)
{
    const auto taps = state().taps;
    const auto live = std::find_if(taps.crbegin(), taps.crend(), isLive);
    if (live == taps.crend()) {
        fault(u"no tap could be switched off"_s);
        return false;
    }
    (*live)->enabled = false;
    return (*live)->callback(nullptr, static_cast<CGEventType>(reason), nullptr, (*live)->userInfo) ==
           nullptr;
}

int SimulatedMac::enabledTaps() const
{
    return static_cast<int>(std::count_if(state().taps.cbegin(), state().taps.cend(), isLive));
}

} // namespace tarnwick

CGDirectDisplayID CGMainDisplayID()
{
    return 0;
}

CGRect CGDisplayBounds(CGDirectDisplayID display)
{
    mac().record(u"CGDisplayBounds"_s, {display});
    const QRectF bounds = mac().displays.value(display);
    return {{bounds.x(), bounds.y()}, {bounds.width(), bounds.height()}};
}

CGError CGGetActiveDisplayList(UInt32 maxDisplays, CGDirectDisplayID* displays, UInt32* displayCount)
{
    if (const auto status = mac().failure(u"CGGetActiveDisplayList"_s))
        return *status;
    const auto count = static_cast<UInt32>(mac().displays.size());
    *displayCount = displays ? std::min(maxDisplays, count) : count;
    for (UInt32 i = 0; displays && i < *displayCount; ++i)
        displays[i] = i;
    return kCGErrorSuccess;
}

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* userInfo)
{
    mac().record(u"CGEventTapCreate"_s,
                 {uint(tap), uint(place), uint(options), qulonglong(eventsOfInterest)});
    if (mac().failure(u"CGEventTapCreate"_s) || !mac().processTrusted)
        return nullptr;
    auto* made = objects().make<MacTap>();
    made->eventsOfInterest = eventsOfInterest;
    made->callback = callback;
    made->userInfo = userInfo;
    made->enabled = true;
    state().taps.append(made);
    return handOut<CFMachPortRef>(made, u"CGEventTapCreate"_s);
}

void CGEventTapEnable(CFMachPortRef tap, bool enable)
{
    mac().record(u"CGEventTapEnable"_s, {enable});
    if (auto* object = objects().find<MacTap>(tap))
        object->enabled = enable;
}

CGEventRef CGEventCreate(CGEventSourceRef source)
{
    mac().record(u"CGEventCreate"_s, {source == nullptr});
    if (mac().failure(u"CGEventCreate"_s))
        return nullptr;
    auto* event = objects().make<MacEvent>();
    event->location = mac().pointer;
    return handOut<CGEventRef>(event, u"CGEventCreate"_s);
}

CGPoint CGEventGetLocation(CGEventRef event)
{
    const auto* object = objects().find<MacEvent>(event);
    return object ? CGPoint{object->location.x(), object->location.y()} : CGPoint{0, 0};
}
