// SPDX-License-Identifier: MIT
#include "platform/macos/hotkeys/QuartzEventTaps.h"

#include "platform/macos/system/CfOwned.h"

#include <ApplicationServices/ApplicationServices.h>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

static_assert(quint32{kCGAnnotatedSessionEventTap} == quint32{EventTaps::AnnotatedSessionEventTap});
static_assert(quint32{kCGHeadInsertEventTap} == quint32{EventTaps::HeadInsertEventTap});
static_assert(quint32{kCGEventTapOptionDefault} == quint32{EventTaps::EventTapOptionDefault});
static_assert(kCGEventOtherMouseDown == EventTapOtherMouseDown);
static_assert(kCGEventTapDisabledByTimeout == EventTapDisabledByTimeout);
static_assert(kCGEventTapDisabledByUserInput == EventTapDisabledByUserInput);

constexpr double SecondsBetweenTries = 2;

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
    Tap(Location location, Placement placement, Options options, quint64 eventsOfInterest,
        EventTapCallback callback)
        : _location(location), _placement(placement), _options(options), _eventsOfInterest(eventsOfInterest),
          _callback(std::move(callback))
    {
    }
    ~Tap()
    {
        if (_port)
            CGEventTapEnable(_port.get(), false);
    }
    Tap(const Tap&) = delete;
    Tap& operator=(const Tap&) = delete;

    /// Makes the tap, in the state that was last asked for. False when the system refuses.
    [[nodiscard]] bool open()
    {
        _port.reset(CGEventTapCreate(
            static_cast<CGEventTapLocation>(_location), static_cast<CGEventTapPlacement>(_placement),
            static_cast<CGEventTapOptions>(_options), _eventsOfInterest, _received, this));
        if (_port && _scheduled)
            schedule();
        if (_port && _enabled)
            CGEventTapEnable(_port.get(), *_enabled);
        return _port != nullptr;
    }

    void schedule()
    {
        _scheduled = true;
        if (!_port)
            return;
        _source = CFMachPortCreateRunLoopSource(kCFAllocatorDefault, _port.get(), 0);
        auto* const runLoop = CFRunLoopGetCurrent();
        if (_source && runLoop)
            CFRunLoopAddSource(runLoop, _source, kCFRunLoopCommonModes);
    }

    void enable(bool enable)
    {
        _enabled = enable;
        if (_port)
            CGEventTapEnable(_port.get(), enable);
    }

    void release()
    {
        _released = true;
        _port.reset();
    }

    [[nodiscard]] bool isReleased() const { return _released; }
    [[nodiscard]] bool isWaiting() const { return !_released && !_port; }

private:
    static CGEventRef _received(CGEventTapProxy /*proxy*/, CGEventType type, CGEventRef event, void* userInfo)
    {
        const auto* tap = static_cast<const Tap*>(userInfo);
        // The system enables a tap when it makes it; ours delivers nothing before enable().
        if (tap->_released || !tap->_enabled.value_or(false))
            return event;
        const RunningCallback running;
        const QuartzEvent tapped;
        return tap->_callback(static_cast<quint32>(type), &tapped) == nullptr ? nullptr : event;
    }

    Location _location;
    Placement _placement;
    Options _options;
    quint64 _eventsOfInterest;
    EventTapCallback _callback;
    bool _scheduled = false;
    std::optional<bool> _enabled; ///< the state that was asked for last
    bool _released = false;
    CfOwned<CFMachPortRef> _port;         ///< null while waiting and once released
    CFRunLoopSourceRef _source = nullptr; ///< kept for the life of the process, with the run loop
};

QuartzEventTaps::QuartzEventTaps() = default;
QuartzEventTaps::~QuartzEventTaps() = default;

EventTapRef QuartzEventTaps::create(Location location, Placement placement, Options options,
                                    quint64 eventsOfInterest, EventTapCallback callback)
{
    auto tap = std::make_unique<Tap>(location, placement, options, eventsOfInterest, std::move(callback));
    if (!tap->open()) {
        if (AXIsProcessTrusted())
            return 0;
        _waitForAccess();
    }
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
    if (Tap* const found = _tap(tap))
        found->enable(enable);
}

void QuartzEventTaps::release(EventTapRef tap)
{
    if (Tap* const found = _tap(tap))
        found->release();
}

bool QuartzEventTaps::isInsideCallback()
{
    return callbacksRunning > 0;
}

QuartzEventTaps::Tap* QuartzEventTaps::_tap(EventTapRef tap) const
{
    if (tap == 0 || tap > _taps.size() || _taps[tap - 1]->isReleased())
        return nullptr;
    return _taps[tap - 1].get();
}

void QuartzEventTaps::_waitForAccess()
{
    _nextTry = Clock::shared().performAfterDelay(SecondsBetweenTries, [this] { _openWaiting(); });
}

void QuartzEventTaps::_openWaiting()
{
    bool allOpen = true;
    for (const auto& tap : _taps) {
        if (tap->isWaiting())
            allOpen = AXIsProcessTrusted() && tap->open() && allOpen;
    }
    if (!allOpen)
        _waitForAccess();
}

} // namespace tarnwick
