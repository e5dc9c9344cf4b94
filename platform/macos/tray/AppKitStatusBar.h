// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"

namespace tarnwick {

/// The menu bar's status area.
class AppKitStatusBar final : public StatusBar
{
public:
    [[nodiscard]] std::shared_ptr<StatusItem> statusItemWithLength(double length) override;
    void removeStatusItem(const std::shared_ptr<StatusItem>& item) override;
};

} // namespace tarnwick
