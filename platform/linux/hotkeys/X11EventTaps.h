// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/TriggerOrder.h"
#include "platform/linux/taps/ButtonTaps.h"

namespace tarnwick {

/// Taps on raw button presses: the middle button and those from 8 on are the extra ones; scrolling (4 to 7)
/// is no button.
class X11EventTaps final : public ButtonTaps
{
    Q_OBJECT

public:
    /// `order` is asked at each press, and hands it on, but for those while a menu is open or a window of
    /// ours is shown.
    explicit X11EventTaps(TriggerOrder order = fromEventLoop);

    /// 0 where the server tells of no raw presses.
    EventTapRef create(Location location, Placement placement, Options options, quint64 eventsOfInterest,
                       EventTapCallback callback) override;

private:
    void _buttonPressed(quint32 button);

    TriggerOrder _order;
};

} // namespace tarnwick
