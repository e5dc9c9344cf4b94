// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/LoginItems.h"

namespace tarnwick {

/// The login item of this application as later systems keep it: a list of one entry at most, ourselves. There
/// is none where the system does not know it.
class AppServiceLoginItems final : public LoginItems
{
public:
    [[nodiscard]] std::unique_ptr<List> createSessionLoginItems() override;
};

} // namespace tarnwick
