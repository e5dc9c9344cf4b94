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

constexpr CGDirectDisplayID FirstDisplay = 1; // 0 is no display

struct MacEvent final : MacHandle
{
    QPointF location;
};

bool isLive(const MacTap* tap)
{
    return !tap->dead && tap->enabled && tap->scheduled;
}

/// Events pass the taps of the hardware first, then those of the session, then those where they are
/// annotated.
void insertTap(MacTap* tap, CGEventTapPlacement placement)
{
    auto& taps = state().taps;
    const bool atTheHead = placement == kCGHeadInsertEventTap;
    const auto behind = std::find_if(taps.cbegin(), taps.cend(), [&](const MacTap* each) {
        return atTheHead ? each->location >= tap->location : each->location > tap->location;
    });
    taps.insert(behind, tap);
}

} // namespace

namespace tarnwick {

bool SimulatedMac::sendEvent(quint32 type)
{
    auto* event = objects().make<MacEvent>();
    MacObjects::hold(event);
    const auto taps = state().taps;
    for (const MacTap* tap : taps) {
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
    const auto live = std::find_if(taps.cbegin(), taps.cend(), isLive);
    if (live == taps.cend()) {
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
    const MacCall call(__func__);
    return call.fails() ? 0 : FirstDisplay;
}

CGRect CGDisplayBounds(CGDirectDisplayID display)
{
    const MacCall call(__func__, display);
    const QRectF bounds = call.fails() || display < FirstDisplay
                              ? QRectF()
                              : mac().displays.value(static_cast<qsizetype>(display - FirstDisplay));
    return {{bounds.x(), bounds.y()}, {bounds.width(), bounds.height()}};
}

CGError CGGetActiveDisplayList(UInt32 maxDisplays, CGDirectDisplayID* displays, UInt32* displayCount)
{
    const MacCall call(__func__, maxDisplays, displays, displayCount);
    if (call.fails())
        return call.status();
    const auto count = static_cast<UInt32>(mac().displays.size());
    *displayCount = displays ? std::min(maxDisplays, count) : count;
    for (UInt32 i = 0; displays && i < *displayCount; ++i)
        displays[i] = FirstDisplay + i;
    return kCGErrorSuccess;
}

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* userInfo)
{
    const MacCall call(__func__, tap, place, options, eventsOfInterest, callback, userInfo);
    if (call.fails() || !mac().processTrusted)
        return nullptr;
    if (tap > kCGAnnotatedSessionEventTap || place > kCGTailAppendEventTap)
        return nullptr;
    auto* made = objects().make<MacTap>();
    made->location = tap;
    made->eventsOfInterest = eventsOfInterest;
    made->callback = callback;
    made->userInfo = userInfo;
    made->enabled = true;
    insertTap(made, place);
    return handOut<CFMachPortRef>(made, call);
}

void CGEventTapEnable(CFMachPortRef tap, bool enable)
{
    const MacCall call(__func__, tap, enable);
    auto* object = objects().find<MacTap>(tap);
    if (object && !call.fails())
        object->enabled = enable;
}

CGEventRef CGEventCreate(CGEventSourceRef source)
{
    const MacCall call(__func__, source);
    if (call.fails())
        return nullptr;
    auto* event = objects().make<MacEvent>();
    event->location = mac().pointer;
    return handOut<CGEventRef>(event, call);
}

CGPoint CGEventGetLocation(CGEventRef event)
{
    const MacCall call(__func__, event);
    const auto* object = objects().find<MacEvent>(event);
    return object && !call.fails() ? CGPoint{object->location.x(), object->location.y()} : CGPoint{0, 0};
}
