// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Alerts.h"

namespace tarnwick {

/// Alerts and sheets as AppKit draws them.
class AppKitAlerts final : public Alerts
{
public:
    int runModal(const Alert& alert) override;
    void beginSheetModalForWindow(const Alert& alert, QWidget* window,
                                  std::function<void(int returnCode)> didEnd) override;
};

} // namespace tarnwick
