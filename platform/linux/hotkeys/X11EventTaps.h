// SPDX-License-Identifier: MIT
#pragma once

#include "mouse/EventTaps.h"
#include "platform/linux/hotkeys/TriggerOrder.h"

#include <QObject>

#include <map>

namespace tarnwick {

/// Taps on raw button presses: the middle button and those from 8 on are the extra ones (type 25); scrolling
/// (4 to 7) is no button. A press always goes on to the application, whatever a callback gives back. The
/// server never switches a tap off. Other event types are never delivered.
class X11EventTaps final : public QObject, public EventTaps
{
    Q_OBJECT

public:
    /// `order` is asked at each press, and hands it on, but for those while a menu is open or a window of
    /// ours is shown.
    explicit X11EventTaps(TriggerOrder order = fromEventLoop);

    EventTapRef create(Location location, Placement placement, Options options, quint64 eventsOfInterest,
                       EventTapCallback callback) override;
    void addSourceToMainRunLoop(EventTapRef tap) override;
    void enable(EventTapRef tap, bool enable) override;
    void release(EventTapRef tap) override;

private:
    struct Tap
    {
        EventTapCallback callback;
        bool scheduled = false;
        bool enabled = false;
    };

    void _buttonPressed(quint32 button);
    void _deliver(EventTapRef ref);

    TriggerOrder _order;
    std::map<EventTapRef, Tap> _taps; ///< newest last
    EventTapRef _lastRef = 0;
};

} // namespace tarnwick
