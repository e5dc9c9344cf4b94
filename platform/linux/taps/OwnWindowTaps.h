// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/taps/ButtonTaps.h"

namespace tarnwick {

/// For where no program is told of presses on the windows of others: taps on those on our own, which let the
/// user show which button is meant. The middle button and those after the wheel's are the extra ones.
class OwnWindowTaps final : public ButtonTaps
{
    Q_OBJECT

public:
    /// The application object is there.
    OwnWindowTaps();

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwick
