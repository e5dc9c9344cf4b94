// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"

#include <QObject>

#include <map>

namespace tarnwick {

/// The taps on presses of extra buttons (type 25). A press always goes on to the application, whatever a
/// callback gives back, and no tap is ever switched off by the system. Other event types are never delivered.
class ButtonTaps : public QObject, public EventTaps
{
    Q_OBJECT

public:
    ~ButtonTaps() override;

    EventTapRef create(Location location, Placement placement, Options options, quint64 eventsOfInterest,
                       EventTapCallback callback) override;
    void addSourceToMainRunLoop(EventTapRef tap) override;
    void enable(EventTapRef tap, bool enable) override;
    void release(EventTapRef tap) override;

protected:
    /// Runs what it is given from the event loop, never at once.
    using Order = std::function<void(std::function<void()>)>;

    ButtonTaps();
    /// Tells every tap, by `order`; at once while a menu is open.
    void pressed(const Order& order);

private:
    struct Tap
    {
        EventTapCallback callback;
        bool scheduled = false;
        bool enabled = false;
    };

    void _deliver(EventTapRef ref);

    std::map<EventTapRef, Tap> _taps; ///< newest last
    EventTapRef _lastRef = 0;
};

} // namespace tarnwick
