// SPDX-License-Identifier: MIT
#include "platform/macos/QuartzEventTaps.h"

#include "platform/macos/CfOwned.h"

#include <ApplicationServices/ApplicationServices.h>
#include <utility>

namespace tarnwick {
namespace {

static_assert(quint32{kCGAnnotatedSessionEventTap} == quint32{EventTaps::AnnotatedSessionEventTap});
static_assert(quint32{kCGHeadInsertEventTap} == quint32{EventTaps::HeadInsertEventTap});
static_assert(quint32{kCGEventTapOptionDefault} == quint32{EventTaps::EventTapOptionDefault});
static_assert(kCGEventOtherMouseDown == EventTapOtherMouseDown);
static_assert(kCGEventTapDisabledByTimeout == EventTapDisabledByTimeout);
static_assert(kCGEventTapDisabledByUserInput == EventTapDisabledByUserInput);

class QuartzEvent final : public TappedEvent
{
};

int callbacksRunning = 0;

struct RunningCallback
{
    RunningCallback() { ++callbacksRunning; }
    ~RunningCallback() { --callbacksRunning; }
    RunningCallback(const RunningCallback&) = delete;
    RunningCallback& operator=(const RunningCallback&) = delete;
};

} // namespace

/// One tap from its creation to the end of the process.
class QuartzEventTaps::Tap
{
public:
    explicit Tap(EventTapCallback callback) : _callback(std::move(callback)) {}
    ~Tap()
    {
        if (_port)
            CGEventTapEnable(_port.get(), false);
    }
    Tap(const Tap&) = delete;
    Tap& operator=(const Tap&) = delete;

    [[nodiscard]] bool open(Location location, Placement placement, Options options, quint64 eventsOfInterest)
    {
        _port.reset(CGEventTapCreate(
            static_cast<CGEventTapLocation>(location), static_cast<CGEventTapPlacement>(placement),
            static_cast<CGEventTapOptions>(options), eventsOfInterest, _received, this));
        return _port != nullptr;
    }

    void schedule()
    {
        _source = CFMachPortCreateRunLoopSource(kCFAllocatorDefault, _port.get(), 0);
        CFRunLoopAddSource(CFRunLoopGetCurrent(), _source, kCFRunLoopCommonModes);
    }

    [[nodiscard]] CFMachPortRef port() const { return _port.get(); }
    void close() { _port.reset(); }

private:
    static CGEventRef _received(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* userInfo)
    {
        const auto* tap = static_cast<const Tap*>(userInfo);
        if (!tap->_port)
            return event;
        const RunningCallback running;
        const QuartzEvent tapped;
        return tap->_callback(static_cast<quint32>(type), &tapped) == nullptr ? nullptr : event;
    }

    EventTapCallback _callback;
    CfOwned<CFMachPortRef> _port;         ///< null once released
    CFRunLoopSourceRef _source = nullptr; ///< kept for the life of the process, with the run loop
};

QuartzEventTaps::QuartzEventTaps() = default;
QuartzEventTaps::~QuartzEventTaps() = default;

EventTapRef QuartzEventTaps::create(Location location, Placement placement, Options options,
                                    quint64 eventsOfInterest, EventTapCallback callback)
{
    auto tap = std::make_unique<Tap>(std::move(callback));
    if (!tap->open(location, placement, options, eventsOfInterest))
        return 0;
    _taps.push_back(std::move(tap));
    return _taps.size();
}

void QuartzEventTaps::addSourceToMainRunLoop(EventTapRef tap)
{
    if (Tap* const found = _tap(tap))
        found->schedule();
}

void QuartzEventTaps::enable(EventTapRef tap, bool enable)
{
    if (const Tap* const found = _tap(tap))
        CGEventTapEnable(found->port(), enable);
}

void QuartzEventTaps::release(EventTapRef tap)
{
    if (Tap* const found = _tap(tap))
        found->close();
}

bool QuartzEventTaps::isInsideCallback()
{
    return callbacksRunning > 0;
}

QuartzEventTaps::Tap* QuartzEventTaps::_tap(EventTapRef tap) const
{
    if (tap == 0 || tap > _taps.size() || !_taps[tap - 1]->port())
        return nullptr;
    return _taps[tap - 1].get();
}

} // namespace tarnwick
